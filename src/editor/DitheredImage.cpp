#include "editor/DitheredImage.h"

#include <algorithm>
#include <thread>

namespace Kovrel {

using DitheredImage::Line;

namespace {

constexpr int side = 8;
constexpr qint64 worthAThread = 500'000; // pixels

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

void paintRows(QImage& image, int from, int to, const std::function<void(Line&, int)>& paint)
{
    Line line;
    line.fill(std::vector<float>(size_t(image.width())));
    for (int y = from; y < to; ++y) {
        paint(line, y);
        store(line, y, image);
    }
}

} // namespace

QImage DitheredImage::painted(QSize size, const std::function<void(Line& line, int y)>& paint)
{
    QImage image(size, QImage::Format_RGB32);
    if (image.isNull())
        return image;
    image.detach(); // before another thread writes to it
    const bool isLarge = qint64(size.width()) * size.height() > worthAThread;
    const int half = isLarge ? size.height() / 2 : 0;
    std::jthread upper([&] { paintRows(image, 0, half, paint); });
    paintRows(image, half, size.height(), paint);
    upper.join();
    return image;
}

} // namespace Kovrel
