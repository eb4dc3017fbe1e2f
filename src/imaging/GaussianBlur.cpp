#include "imaging/GaussianBlur.h"

#include "imaging/Simd.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <vector>

namespace Kovrel {

using GaussianBlur::Edges;

namespace {

// A blurred picture holds nothing much finer than its sigma, so the work is done on a coarse grid: pixels are shared
// out among the nearest cells, and in the end interpolated between them, both linearly. Linear interpolation errs by
// at most h^2 / 8 * |f''| between points h apart, and no blurred picture bends more than |f''| = 255 * 0.48 / sigma^2:
// with six cells to a sigma, each of the two costs less than half a level of 255, half of which the variance that is
// taken off below makes up for.
constexpr double cellsToSigma = 6;
// Beyond lies 0.05 percent of a Gaussian: a tenth of a level.
constexpr double reachInSigmas = 3.5;
// A narrower one leaves less than a level of 255 of a pixel to its neighbours.
constexpr double leastSigma = 0.2;
// A wider one looks the same: next to it the picture is a point.
constexpr double mostSigmasToLength = 16;

// The interleaved values of a picture, at any resolution.
struct Plane {
    Plane(int w, int h, int c) : width(w), height(h), channels(c), values(size_t(w) * size_t(h) * size_t(c)) {}

    size_t stride() const { return size_t(width) * size_t(channels); }

    float* row(int y) { return values.data() + size_t(y) * stride(); }

    const float* row(int y) const { return values.data() + size_t(y) * stride(); }

    int width;
    int height;
    int channels;
    std::vector<float> values;
};

// The cells along a side, of an odd number of pixels each. The two before the picture and after it hold what lies
// there for ever: the outermost takes no pixel's share.
struct Grid {
    static constexpr int outside = 2;

    Grid(int length, int cellSize) : cell(cellSize), count((length + cellSize - 1) / cellSize + 2 * outside) {}

    int centre(int index) const { return (index - outside) * cell + cell / 2; }

    // What a cell takes of a pixel `distance` from its centre; the shares of a cell sum up to one.
    float share(int distance) const { return float(cell - std::abs(distance)) / float(cell * cell); }

    int cell;
    int count;
};

// --- Down: pixels shared out among cells

// Calls `take(pixel, share)` for each pixel of a side that a cell shares in.
template <class Take>
void forShares(const Grid& grid, int index, int length, Edges edges, Take take)
{
    for (int distance = 1 - grid.cell; distance < grid.cell; ++distance) {
        const int pixel = grid.centre(index) + distance;
        const int inside = std::clamp(pixel, 0, length - 1);
        if (inside == pixel || edges == Edges::repeated)
            take(inside, grid.share(distance));
    }
}

template <class Value>
Plane cellsOf(const QImage& image, int cell, Edges edges)
{
    const int channels = image.depth() / 8 / int(sizeof(Value));
    const Grid columns(image.width(), cell);
    const Grid rows(image.height(), cell);
    Plane cells(columns.count, rows.count, channels);
    std::vector<float> line(size_t(image.width()) * size_t(channels));
    for (int row = 0; row < rows.count; ++row) {
        std::fill(line.begin(), line.end(), 0.0f);
        forShares(rows, row, image.height(), edges, [&](int y, float share) {
            const auto* const pixels = reinterpret_cast<const Value*>(image.constScanLine(y));
            for (size_t index = 0; index < line.size(); ++index)
                line[index] += share * float(pixels[index]);
        });
        float* value = cells.row(row);
        for (int column = 0; column < columns.count; ++column, value += channels)
            forShares(columns, column, image.width(), edges, [&](int x, float share) {
                for (int channel = 0; channel < channels; ++channel)
                    value[channel] += share * line[size_t(x * channels + channel)];
            });
    }
    return cells;
}

// --- The Gaussian

// Half of a sampled Gaussian, the middle first; the whole sums up to one.
std::vector<float> halfKernel(double sigma)
{
    std::vector<float> half(size_t(std::ceil(reachInSigmas * sigma)) + 1);
    double sum = 0;
    for (size_t offset = 0; offset < half.size(); ++offset) {
        const double value = std::exp(-double(offset * offset) / (2 * sigma * sigma));
        half[offset] = float(value);
        sum += offset == 0 ? value : 2 * value;
    }
    for (float& value : half)
        value = float(value / sum);
    return half;
}

// to += weight * (one + other), for `count` values.
KOVREL_SIMD void addPair(float* to, float weight, const float* one, const float* other, size_t count)
{
    for (size_t index = 0; index < count; ++index)
        to[index] += weight * (one[index] + other[index]);
}

void convolveColumns(Plane& plane, const std::vector<float>& half)
{
    const Plane source = plane;
    const auto row = [&](int y) { return source.row(std::clamp(y, 0, source.height - 1)); };
    for (int y = 0; y < plane.height; ++y) {
        std::fill_n(plane.row(y), plane.stride(), 0.0f);
        addPair(plane.row(y), half[0] / 2, row(y), row(y), plane.stride());
        for (int offset = 1; offset < int(half.size()); ++offset)
            addPair(plane.row(y), half[size_t(offset)], row(y - offset), row(y + offset), plane.stride());
    }
}

// A row with its first and last pixel repeated `reach` times on their sides.
void spread(const float* row, const Plane& plane, int reach, std::vector<float>& padded)
{
    const int channels = plane.channels;
    for (int x = -reach; x < plane.width + reach; ++x)
        std::copy_n(row + std::clamp(x, 0, plane.width - 1) * channels, channels,
                    padded.data() + (x + reach) * channels);
}

void convolveRows(Plane& plane, const std::vector<float>& half)
{
    const int reach = int(half.size()) - 1;
    std::vector<float> padded(plane.stride() + size_t(2 * reach * plane.channels));
    const float* const middle = padded.data() + reach * plane.channels;
    for (int y = 0; y < plane.height; ++y) {
        spread(plane.row(y), plane, reach, padded);
        std::fill_n(plane.row(y), plane.stride(), 0.0f);
        addPair(plane.row(y), half[0] / 2, middle, middle, plane.stride());
        for (int offset = 1; offset <= reach; ++offset)
            addPair(plane.row(y), half[size_t(offset)], middle - offset * plane.channels,
                    middle + offset * plane.channels, plane.stride());
    }
}

// --- Up: interpolated between the centres of cells

// Between which two cells a pixel's centre lies, and how far from the first.
struct Between {
    int first;
    float fraction;

    Between(int pixel, int cell)
    {
        const float position = (float(pixel) + 0.5f) / float(cell) - 0.5f + Grid::outside;
        first = int(position);
        fraction = position - float(first);
    }
};

template <class Value>
void storePixels(const std::vector<float>& cells, const std::vector<Between>& columns, int channels, Value* pixels)
{
    for (const Between& column : columns) {
        const float* const cell = cells.data() + column.first * channels;
        for (int channel = 0; channel < channels; ++channel)
            *pixels++ =
                Value(cell[channel] + column.fraction * (cell[channel + channels] - cell[channel]) + 0.5f); // nearest
    }
}

template <class Value>
void interpolate(const Plane& plane, int cell, QImage& image)
{
    std::vector<Between> columns;
    columns.reserve(size_t(image.width()));
    for (int x = 0; x < image.width(); ++x)
        columns.emplace_back(x, cell);
    std::vector<float> cells(plane.stride());
    for (int y = 0; y < image.height(); ++y) {
        const Between row(y, cell);
        const float* const upper = plane.row(row.first);
        const float* const lower = plane.row(row.first + 1);
        for (size_t index = 0; index < cells.size(); ++index)
            cells[index] = upper[index] + row.fraction * (lower[index] - upper[index]);
        storePixels(cells, columns, plane.channels, reinterpret_cast<Value*>(image.scanLine(y)));
    }
}

QImage withPlainFormat(const QImage& image)
{
    switch (image.format()) {
    case QImage::Format_Alpha8:
    case QImage::Format_Grayscale8:
    case QImage::Format_RGB32:
    case QImage::Format_ARGB32_Premultiplied:
    case QImage::Format_RGBX64:
        return image;
    default:
        return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    }
}

template <class Value>
void blur(QImage& image, double sigma, Edges edges)
{
    const int cell = 2 * int(std::max(0.0, sigma / cellsToSigma - 1) / 2) + 1;
    // Sharing out and interpolating are blurs too, of a variance of (cell^2 - 1) / 6 each.
    const double variance = sigma * sigma - double(cell * cell - 1) / 3;
    const std::vector<float> half = halfKernel(std::sqrt(variance) / cell);
    Plane cells = cellsOf<Value>(image, cell, edges);
    convolveColumns(cells, half);
    convolveRows(cells, half);
    interpolate<Value>(cells, cell, image);
}

} // namespace

QImage GaussianBlur::blurred(const QImage& image, double sigma, Edges edges)
{
    QImage result = withPlainFormat(image);
    if (result.isNull() || !(sigma > leastSigma))
        return result;
    sigma = std::min(sigma, mostSigmasToLength * std::max(image.width(), image.height()));
    try {
        if (result.format() == QImage::Format_RGBX64)
            blur<quint16>(result, sigma, edges);
        else
            blur<uchar>(result, sigma, edges);
    } catch (const std::bad_alloc&) {
        return {};
    }
    return result;
}

} // namespace Kovrel
