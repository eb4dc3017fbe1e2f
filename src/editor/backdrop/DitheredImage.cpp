#include "editor/backdrop/DitheredImage.h"

#include "imaging/GaussianBlur.h"
#include "imaging/InHalves.h"

#include <algorithm>

namespace Kovrel {

using DitheredImage::Line;
using DitheredImage::Paint;

namespace {

constexpr int side = 8;

// The Bayer matrix: bits of x ^ y and y, interleaved from the lowest upwards; each threshold in the middle of its step.
constexpr std::array<std::array<float, side>, side> bayerMatrix()
{
    std::array<std::array<float, side>, side> matrix{};
    for (unsigned y = 0; y < side; ++y) {
        for (unsigned x = 0; x < side; ++x) {
            unsigned rank = 0;
            for (unsigned bit = 0; bit < 3; ++bit)
                rank = rank << 2 | ((x ^ y) >> bit & 1) << 1 | (y >> bit & 1);
            matrix[y][x] = (float(rank) + 0.5f) / (side * side);
        }
    }
    return matrix;
}

constexpr auto thresholds = bayerMatrix();

void store(const Line& line, int y, QImage& image)
{
    auto* const pixels = reinterpret_cast<QRgb*>(image.scanLine(y));
    const auto& row = thresholds[size_t(y % side)];
    const float* const red = line[0].data();
    const float* const green = line[1].data();
    const float* const blue = line[2].data();
    for (int x = 0; x < image.width(); ++x) {
        const float threshold = row[size_t(x % side)];
        const auto level = [threshold](float value) { return quint32(int(value + threshold)); };
        pixels[x] = 0xff000000 | level(red[x]) << 16 | level(green[x]) << 8 | level(blue[x]);
    }
}

// 257 of the finer steps make a level.
constexpr float fineSteps = 257;

void storeFinely(const Line& line, int y, QImage& image)
{
    auto* const pixels = reinterpret_cast<QRgba64*>(image.scanLine(y));
    const auto fine = [&](size_t channel, int x) { return quint16(line[channel][size_t(x)] * fineSteps + 0.5f); };
    for (int x = 0; x < image.width(); ++x)
        pixels[x] = qRgba64(fine(0, x), fine(1, x), fine(2, x), 0xffff);
}

void loadFine(const QImage& image, int y, Line& line)
{
    const auto* const pixels = reinterpret_cast<const QRgba64*>(image.constScanLine(y));
    for (int x = 0; x < image.width(); ++x) {
        line[0][size_t(x)] = float(pixels[x].red()) / fineSteps;
        line[1][size_t(x)] = float(pixels[x].green()) / fineSteps;
        line[2][size_t(x)] = float(pixels[x].blue()) / fineSteps;
    }
}

template <class Store>
void paintRows(QImage& image, int from, int to, const Paint& paint, Store store)
{
    Line line;
    line.fill(std::vector<float>(size_t(image.width())));
    for (int y = from; y < to; ++y) {
        paint(line, y);
        store(line, y, image);
    }
}

template <class Store>
QImage paintedAs(QImage::Format format, QSize size, const Paint& paint, Store store)
{
    QImage image(size, format);
    if (image.isNull())
        return image;
    image.detach(); // before another thread writes to it
    inHalves(size, [&](int from, int to) { paintRows(image, from, to, paint, store); });
    return image;
}

} // namespace

QImage DitheredImage::painted(QSize size, const Paint& paint)
{
    return paintedAs(QImage::Format_RGB32, size, paint, store);
}

QImage DitheredImage::paintedSoftly(QSize size, double sigma, const Paint& paint)
{
    if (!(sigma > 0))
        return painted(size, paint);
    const QImage fine = GaussianBlur::blurred(paintedAs(QImage::Format_RGBX64, size, paint, storeFinely), sigma,
                                              GaussianBlur::Edges::repeated);
    return fine.isNull() ? QImage() : painted(size, [&](Line& line, int y) { loadFine(fine, y, line); });
}

} // namespace Kovrel
