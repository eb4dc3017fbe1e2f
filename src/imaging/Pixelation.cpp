#include "imaging/Pixelation.h"

#include <QColorSpace>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <vector>

namespace Kovrel {

namespace {

constexpr size_t channels = 4;

// The pixels of a side that a square covers; it may begin before the picture and end behind it.
struct Span {
    int from;
    int to;

    int length() const { return to - from; }
};

std::vector<Span> spansOf(int length, double cell)
{
    const double middle = length / 2.0;
    std::vector<Span> spans;
    for (int index = -int(std::ceil(middle / cell)); middle + index * cell < length; ++index) {
        const auto border = [&](int number) { return int(std::floor(middle + number * cell + 0.5)); };
        const Span span{border(index), border(index + 1)};
        if (span.from < length && span.to > 0)
            spans.push_back(span);
    }
    return spans;
}

// How often the pixel counts in the span: those at the edges of the picture stand for what lies beyond.
quint32 weight(int pixel, const Span& span, int length)
{
    quint32 weight = 1;
    if (pixel == 0)
        weight += quint32(std::max(0, -span.from));
    if (pixel == length - 1)
        weight += quint32(std::max(0, span.to - length));
    return weight;
}

// Calls `take(pixel, weight)` for the pixels of the picture in the span.
template <class Take>
void forPixels(const Span& span, int length, Take take)
{
    for (int pixel = std::max(0, span.from); pixel < std::min(span.to, length); ++pixel)
        take(pixel, weight(pixel, span, length));
}

// The sums of each column's channels over the rows of a span.
void sumRows(const QImage& image, const Span& rows, std::vector<quint32>& sums)
{
    std::fill(sums.begin(), sums.end(), 0);
    forPixels(rows, image.height(), [&](int y, quint32 times) {
        const uchar* const values = image.constScanLine(y);
        for (size_t index = 0; index < sums.size(); ++index)
            sums[index] += times * values[index];
    });
}

QRgb meanOf(const std::vector<quint32>& sums, const Span& columns, int width, int rows)
{
    std::array<quint64, channels> total{};
    forPixels(columns, width, [&](int x, quint32 times) {
        for (size_t channel = 0; channel < channels; ++channel)
            total[channel] += quint64(times) * sums[size_t(x) * channels + channel];
    });
    const quint64 count = quint64(columns.length()) * quint64(rows);
    std::array<uchar, channels> mean{};
    for (size_t channel = 0; channel < channels; ++channel)
        mean[channel] = uchar((total[channel] + count / 2) / count);
    QRgb pixel = 0;
    std::memcpy(&pixel, mean.data(), sizeof pixel);
    return pixel;
}

} // namespace

QImage Pixelation::pixelated(const QImage& image, double cell)
{
    const QImage source =
        image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    if (source.isNull() || !(cell >= 1))
        return source;
    // Farther from the middle nothing is left to meet.
    cell = std::min(cell, 2.0 * std::max(image.width(), image.height()));
    QImage result(source.size(), source.format());
    if (result.isNull())
        return {};
    result.setColorSpace(source.colorSpace());
    const auto columns = spansOf(source.width(), cell);
    std::vector<quint32> sums(size_t(source.width()) * channels);
    std::vector<QRgb> line(size_t(source.width()));
    for (const Span& rows : spansOf(source.height(), cell)) {
        sumRows(source, rows, sums);
        for (const Span& span : columns) {
            const QRgb mean = meanOf(sums, span, source.width(), rows.length());
            forPixels(span, source.width(), [&](int x, quint32) { line[size_t(x)] = mean; });
        }
        forPixels(rows, source.height(),
                  [&](int y, quint32) { std::memcpy(result.scanLine(y), line.data(), line.size() * sizeof(QRgb)); });
    }
    return result;
}

} // namespace Kovrel
