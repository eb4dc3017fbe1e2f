#include "imaging/Resampling.h"

#include "imaging/InHalves.h"
#include "imaging/Simd.h"

#include <QColorSpace>

#include <algorithm>
#include <cmath>
#include <new>
#include <vector>

namespace Kovrel {

namespace {

constexpr int channels = 4;

// Which pixels of a line a new pixel is made of, and how much of each; the weights sum up to one.
struct Mix {
    int first = 0;
    std::vector<float> weights;
};

// The area that a pixel of a shorter line stands for.
Mix areaOf(int index, double step, int length)
{
    const double from = index * step;
    const double to = std::min(from + step, double(length));
    Mix mix{.first = int(from)};
    for (int pixel = mix.first; pixel < std::ceil(to - 1e-9); ++pixel)
        mix.weights.push_back(float((std::min(to, pixel + 1.0) - std::max(from, double(pixel))) / (to - from)));
    return mix;
}

// R. Keys, "Cubic convolution interpolation for digital image processing", 1981, with a = -1/2.
double cubic(double distance)
{
    const double x = std::abs(distance);
    if (x < 1)
        return (1.5 * x - 2.5) * x * x + 1;
    return x < 2 ? ((-0.5 * x + 2.5) * x - 4) * x + 2 : 0;
}

// The four pixels around a place in a line that gets longer. Beyond its ends the last pixel goes on.
Mix curveAt(int index, double step, int length)
{
    const double place = (index + 0.5) * step - 0.5;
    const int before = int(std::floor(place)) - 1;
    Mix mix{.first = std::clamp(before, 0, length - 1)};
    const int last = std::clamp(before + 3, 0, length - 1);
    mix.weights.resize(size_t(last - mix.first + 1));
    for (int pixel = before; pixel < before + 4; ++pixel)
        mix.weights[size_t(std::clamp(pixel, mix.first, last) - mix.first)] += float(cubic(place - pixel));
    return mix;
}

std::vector<Mix> mixesOf(int length, int newLength)
{
    const double step = double(length) / newLength;
    std::vector<Mix> mixes;
    mixes.reserve(size_t(newLength));
    for (int index = 0; index < newLength; ++index)
        mixes.push_back(newLength < length ? areaOf(index, step, length) : curveAt(index, step, length));
    return mixes;
}

KOVREL_SIMD void addLine(float* line, float weight, const uchar* pixels, size_t count)
{
    for (size_t index = 0; index < count; ++index)
        line[index] += weight * float(pixels[index]);
}

// The lines of the picture that a new line is made of, mixed.
void mixLines(const QImage& image, const Mix& rows, std::vector<float>& line)
{
    std::fill(line.begin(), line.end(), 0.0f);
    int y = rows.first;
    for (const float weight : rows.weights)
        addLine(line.data(), weight, image.constScanLine(y++), line.size());
}

// The four channels of a new pixel. A curve may swing over what there is: no colour is more than its alpha.
void storePixel(const float* values, const Mix& columns, uchar* pixel)
{
    float mixed[channels] = {0.5f, 0.5f, 0.5f, 0.5f}; // rounds to the nearest
    for (const float weight : columns.weights)
        for (float& value : mixed)
            value += weight * *values++;
    static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN, "alpha is the last byte of a pixel");
    const float alpha = std::clamp(float(int(mixed[3])), 0.0f, 255.0f);
    for (const float value : mixed)
        *pixel++ = uchar(std::clamp(value, 0.0f, alpha));
}

void storeLine(const std::vector<float>& line, const std::vector<Mix>& columns, uchar* pixel)
{
    for (const Mix& mix : columns) {
        storePixel(line.data() + size_t(mix.first) * channels, mix, pixel);
        pixel += channels;
    }
}

QImage emptyLike(const QImage& source, QSize size)
{
    QImage result(size, source.format());
    result.setColorSpace(source.colorSpace());
    result.setDotsPerMeterX(source.dotsPerMeterX());
    result.setDotsPerMeterY(source.dotsPerMeterY());
    return result;
}

void resample(const QImage& source, QImage& result)
{
    const auto columns = mixesOf(source.width(), result.width());
    const auto rows = mixesOf(source.height(), result.height());
    uchar* const pixels = result.bits();
    inHalves(result.size(), [&, bytesPerLine = result.bytesPerLine()](int from, int to) {
        std::vector<float> line(size_t(source.width()) * channels);
        for (int y = from; y < to; ++y) {
            mixLines(source, rows[size_t(y)], line);
            storeLine(line, columns, pixels + y * bytesPerLine);
        }
    });
}

bool canBeMade(QSize size)
{
    return !size.isEmpty() && std::max(size.width(), size.height()) <= Resampling::longestSide &&
           qint64(size.width()) * size.height() <= Resampling::mostPixels;
}

int reducedLength(int length, double factor)
{
    return std::max(1, qRound(length / factor));
}

} // namespace

std::optional<QImage> Resampling::resampledExactly(const QImage& image, QSize to)
{
    if (image.isNull() || !canBeMade(to))
        return std::nullopt;
    if (image.size() == to)
        return image;
    const QImage source =
        image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    QImage result = emptyLike(source, to);
    if (source.isNull() || result.isNull())
        return std::nullopt;
    try {
        resample(source, result);
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
    return result;
}

QImage Resampling::fitted(const QImage& image, QSize bounds)
{
    if (image.isNull() || bounds.isEmpty())
        return {};
    const double factor = std::max(double(image.width()) / bounds.width(), double(image.height()) / bounds.height());
    return factor <= 1 ? image : reduced(image, factor).value_or(QImage());
}

QRect Resampling::coveringPart(QSize image, QSize to)
{
    QRect part({0, 0}, to.scaled(image, Qt::KeepAspectRatio).expandedTo({1, 1}));
    part.moveCenter(QRect({0, 0}, image).center());
    return part;
}

std::optional<QImage> Resampling::reduced(const QImage& image, double factor)
{
    if (image.isNull() || !(factor > 1) || !std::isfinite(factor))
        return std::nullopt;
    return resampledExactly(image, {reducedLength(image.width(), factor), reducedLength(image.height(), factor)});
}

} // namespace Kovrel
