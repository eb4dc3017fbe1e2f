#include "saving/AreaAverage.h"

#include <QColorSpace>

#include <array>
#include <cmath>
#include <vector>

namespace Kovrel {

namespace {

constexpr int channels = 4;

// Which pixels of a line a reduced pixel covers, and how much of each; the weights sum up to one.
struct Cover {
    int first = 0;
    std::vector<float> weights;
};

std::vector<Cover> coversOf(int length, int reducedLength)
{
    const double step = double(length) / reducedLength;
    std::vector<Cover> covers(static_cast<size_t>(reducedLength));
    for (int index = 0; index < reducedLength; ++index) {
        const double from = index * step;
        const double to = qMin(from + step, double(length));
        Cover& cover = covers[size_t(index)];
        cover.first = int(from);
        for (int pixel = cover.first; pixel < std::ceil(to - 1e-9); ++pixel)
            cover.weights.push_back(float((qMin(to, pixel + 1.0) - qMax(from, double(pixel))) / (to - from)));
    }
    return covers;
}

// Adds one line of the picture, reduced in its width, to the sums of a reduced line.
void addLine(const uchar* line, const std::vector<Cover>& columns, float lineWeight, std::vector<float>& sums)
{
    float* sum = sums.data();
    for (const Cover& cover : columns) {
        const uchar* pixel = line + size_t(cover.first) * channels;
        std::array<float, channels> mean{};
        for (const float weight : cover.weights) {
            for (size_t channel = 0; channel < channels; ++channel)
                mean[channel] += weight * float(pixel[channel]);
            pixel += channels;
        }
        for (size_t channel = 0; channel < channels; ++channel)
            sum[channel] += lineWeight * mean[channel];
        sum += channels;
    }
}

void storeLine(const std::vector<float>& sums, uchar* line)
{
    for (size_t index = 0; index < sums.size(); ++index)
        line[index] = uchar(sums[index]);
}

int reducedLength(int length, double factor)
{
    return qMax(1, qRound(length / factor));
}

} // namespace

std::optional<QImage> AreaAverage::reduced(const QImage& image, double factor)
{
    if (image.isNull() || !(factor > 1) || !std::isfinite(factor))
        return std::nullopt;
    const QImage source =
        image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    QImage result(reducedLength(source.width(), factor), reducedLength(source.height(), factor), source.format());
    if (source.isNull() || result.isNull())
        return std::nullopt;
    result.setColorSpace(source.colorSpace());
    result.setDotsPerMeterX(source.dotsPerMeterX());
    result.setDotsPerMeterY(source.dotsPerMeterY());

    const auto columns = coversOf(source.width(), result.width());
    const auto rows = coversOf(source.height(), result.height());
    for (int y = 0; y < result.height(); ++y) {
        std::vector<float> sums(size_t(result.width()) * channels, 0.5f); // rounds to the nearest
        int sourceY = rows[size_t(y)].first;
        for (const float weight : rows[size_t(y)].weights)
            addLine(source.constScanLine(sourceY++), columns, weight, sums);
        storeLine(sums, result.scanLine(y));
    }
    return result;
}

} // namespace Kovrel
