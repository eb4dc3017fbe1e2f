#include "recognition/codes/GreyPicture.h"

#include <algorithm>

namespace Kovrel {

namespace {

QImage blank(QSize size)
{
    return QImage(size, QImage::Format_Grayscale8);
}

uint brightness(QRgb pixel)
{
    return (306 * uint(qRed(pixel)) + 601 * uint(qGreen(pixel)) + 117 * uint(qBlue(pixel)) + 512) >> 10;
}

void copyBrightness(const QRgb* from, uchar* to, int width)
{
    for (int x = 0; x < width; ++x)
        to[x] = uchar(brightness(from[x]));
}

void copyBrightnessOverWhite(const QRgb* from, uchar* to, int width)
{
    for (int x = 0; x < width; ++x) {
        const uint alpha = uint(qAlpha(from[x]));
        to[x] = uchar((brightness(from[x]) * alpha + 255 * (255 - alpha) + 127) / 255);
    }
}

// The place of a neighbour, or of the edge.
int within(int place, int length)
{
    return std::clamp(place, 0, length - 1);
}

// Where a pixel of an enlarged axis lies between those of the original.
struct Between {
    int before = 0;
    int after = 0;
    uint weight = 0; // of the latter, in parts of 256
};

std::vector<Between> betweens(int length, int factor)
{
    std::vector<Between> all;
    for (int place = 0; place < length * factor; ++place) {
        const int pastBefore = 2 * place + 1 + factor; // from the centre before the first one, in halves of a new pixel
        const int before = pastBefore / (2 * factor) - 1;
        all.push_back(
            {within(before, length), within(before + 1, length), uint(pastBefore % (2 * factor) * 128 / factor)});
    }
    return all;
}

// Fits sixteen bits, so that eight are blended at once.
uchar blended(uint before, uint after, uint weight)
{
    return uchar(quint16(before * (256 - weight) + after * weight + 128) >> 8);
}

// Each row enlarged by itself.
QImage widened(const QImage& grey, int factor)
{
    QImage result = blank({grey.width() * factor, grey.height()});
    const auto columns = betweens(grey.width(), factor);
    for (int y = 0; y < result.height(); ++y) {
        const uchar* from = grey.constScanLine(y);
        std::ranges::transform(columns, result.scanLine(y),
                               [from](const Between& x) { return blended(from[x.before], from[x.after], x.weight); });
    }
    return result;
}

constexpr int leastRange = 8; // what differs less is one colour

void level(const uchar* from, const uchar* end, uchar* to, int darkest, int range)
{
    const int factor = range < leastRange ? 0 : 255 * 256 / range;
    std::transform(from, end, to, [=](uchar value) { return uchar(factor ? (value - darkest) * factor >> 8 : 255); });
}

// The darkest and the lightest pixel around each place, in squares of three blocks.
class Extremes {
public:
    using Range = std::pair<uchar, uchar>;

    explicit Extremes(const QImage& grey)
        : m_columns((grey.width() + blockSide - 1) / blockSide),
          m_rows((grey.height() + blockSide - 1) / blockSide),
          m_blocks(size_t(m_columns) * size_t(m_rows), Range(255, 0))
    {
        for (int y = 0; y < grey.height(); ++y)
            for (int left = 0; left < grey.width(); left += blockSide)
                measure(grey.constScanLine(y) + left, std::min(blockSide, grey.width() - left),
                        m_blocks[index(left / blockSide, y / blockSide)]);
        spread();
    }

    const Range& around(int x, int y) const { return m_blocks[index(x / blockSide, y / blockSide)]; }

    static constexpr int blockSide = 10; // pixels

private:
    static void measure(const uchar* pixels, int count, Range& range)
    {
        const auto [darkest, lightest] = std::minmax_element(pixels, pixels + count);
        widen(range, {*darkest, *lightest});
    }

    static void widen(Range& range, const Range& other)
    {
        range = {std::min(range.first, other.first), std::max(range.second, other.second)};
    }

    size_t index(int column, int row) const { return size_t(row) * size_t(m_columns) + size_t(column); }

    // Every block takes in those around it.
    void spread()
    {
        const std::vector<Range> own = m_blocks;
        for (int row = 0; row < m_rows; ++row)
            for (int column = 0; column < m_columns; ++column)
                for (const int dy : {-1, 0, 1})
                    for (const int dx : {-1, 0, 1})
                        widen(m_blocks[index(column, row)],
                              own[index(within(column + dx, m_columns), within(row + dy, m_rows))]);
    }

    int m_columns;
    int m_rows;
    std::vector<Range> m_blocks;
};

} // namespace

QImage GreyPicture::of(const QImage& image)
{
    if (image.format() == QImage::Format_Grayscale8)
        return image;
    const bool isOpaque = !image.hasAlphaChannel();
    const QImage colours = image.convertToFormat(isOpaque ? QImage::Format_RGB32 : QImage::Format_ARGB32);
    QImage grey = blank(colours.size());
    for (int y = 0; y < grey.height(); ++y)
        (isOpaque ? copyBrightness : copyBrightnessOverWhite)(reinterpret_cast<const QRgb*>(colours.constScanLine(y)),
                                                              grey.scanLine(y), grey.width());
    return grey;
}

QImage GreyPicture::view(const QImage& grey, const QRect& pixels)
{
    return QImage(grey.constScanLine(pixels.y()) + pixels.x(), pixels.width(), pixels.height(), grey.bytesPerLine(),
                  QImage::Format_Grayscale8);
}

QImage GreyPicture::halved(const QImage& grey)
{
    QImage result = blank({grey.width() / 2, grey.height() / 2}); // QSize would round up
    const int width = result.width();
    for (int y = 0; y < result.height(); ++y) {
        const uchar* upper = grey.constScanLine(2 * y);
        const uchar* lower = grey.constScanLine(2 * y + 1);
        uchar* to = result.scanLine(y);
        for (int x = 0; x < width; ++x)
            to[x] = uchar((upper[2 * x] + upper[2 * x + 1] + lower[2 * x] + lower[2 * x + 1] + 2) / 4);
    }
    return result;
}

QImage GreyPicture::enlarged(const QImage& grey, int factor)
{
    const QImage wide = widened(grey, factor);
    QImage result = blank({wide.width(), wide.height() * factor});
    const auto rows = betweens(wide.height(), factor);
    const int width = result.width();
    for (int y = 0; y < result.height(); ++y) {
        const Between place = rows[size_t(y)];
        const uchar* before = wide.constScanLine(place.before);
        const uchar* after = wide.constScanLine(place.after);
        uchar* to = result.scanLine(y);
        for (int x = 0; x < width; ++x)
            to[x] = blended(before[x], after[x], place.weight);
    }
    return result;
}

QImage GreyPicture::softened(const QImage& grey)
{
    QImage result = blank(grey.size());
    const size_t width = size_t(grey.width());
    std::vector<int> sums(width + 2); // of three pixels above each other, with an edge on both sides
    for (int y = 0; y < result.height(); ++y) {
        const uchar* upper = grey.constScanLine(within(y - 1, grey.height()));
        const uchar* middle = grey.constScanLine(y);
        const uchar* lower = grey.constScanLine(within(y + 1, grey.height()));
        for (size_t x = 0; x < width; ++x)
            sums[x + 1] = upper[x] + middle[x] + lower[x];
        sums.front() = sums[1];
        sums.back() = sums[width];
        uchar* to = result.scanLine(y);
        for (size_t x = 0; x < width; ++x)
            to[x] = uchar((sums[x] + sums[x + 1] + sums[x + 2]) / 9);
    }
    return result;
}

QImage GreyPicture::sharpened(const QImage& grey, const QImage& soft)
{
    QImage result = blank(soft.size());
    for (int y = 0; y < result.height(); ++y)
        std::transform(grey.constScanLine(y), grey.constScanLine(y) + grey.width(), soft.constScanLine(y),
                       result.scanLine(y),
                       [](uchar sharp, uchar mean) { return uchar(within(2 * sharp - mean, 256)); });
    return result;
}

QImage GreyPicture::levelled(const QImage& grey)
{
    const Extremes extremes(grey);
    QImage result = blank(grey.size());
    for (int y = 0; y < result.height(); ++y)
        for (int left = 0; left < result.width(); left += Extremes::blockSide) {
            const auto [darkest, lightest] = extremes.around(left, y);
            const uchar* const from = grey.constScanLine(y) + left;
            level(from, from + std::min(Extremes::blockSide, result.width() - left), result.scanLine(y) + left, darkest,
                  lightest - darkest);
        }
    return result;
}

QImage GreyPicture::inverted(QImage grey)
{
    grey.invertPixels();
    return grey;
}

} // namespace Kovrel
