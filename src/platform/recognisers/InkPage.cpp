#include "platform/recognisers/InkPage.h"

#include "imaging/InkBlobs.h"
#include "imaging/PixelRegions.h"

#include <QPainter>

#include <algorithm>
#include <numeric>

namespace Kovrel {

namespace {

constexpr int sameColour = 3;            // largest difference of neighbours on one ground, of 255
constexpr int leastInk = 24;             // what differs less from its ground is part of it
constexpr int leastContrast = 40;        // a blob that nowhere differs more is noise
constexpr int darkInk = 160;             // grey levels below are ink
constexpr int wideGround = 16;           // side of a square that fits into no stroke of a letter
constexpr int leastChipHeight = 12;      // a button or label with text on it
constexpr double leastGroundShare = 0.4; // of a page that is made of grounds

int difference(QRgb one, QRgb other)
{
    return std::max({std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                     std::abs(qBlue(one) - qBlue(other))});
}

const QRgb* pixelsOf(const QImage& image)
{
    return reinterpret_cast<const QRgb*>(image.constBits());
}

// What shines through is white, or black where the visible part is light.
QImage opaque(const QImage& picture)
{
    if (!picture.hasAlphaChannel())
        return picture.convertToFormat(QImage::Format_RGB32);
    const QImage sample = picture.scaled(64, 64).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    qint64 light = 0;
    qint64 visible = 0;
    for (int pixel = 0; pixel < 64 * 64; ++pixel) {
        light += qGray(pixelsOf(sample)[pixel]);
        visible += qAlpha(pixelsOf(sample)[pixel]);
    }
    const bool isSeeThrough = visible < 255LL * 64 * 64 * 9 / 10;
    QImage page(picture.size(), QImage::Format_RGB32);
    page.fill(isSeeThrough && light * 3 > visible * 2 ? Qt::black : Qt::white);
    QPainter(&page).drawImage(QPoint(), picture);
    return page;
}

// Finds the grounds: regions of one colour that something is written on.
class Grounds {
public:
    explicit Grounds(const QImage& page)
        : m_size(page.size()),
          m_regions(page.size(),
                    [pixels = pixelsOf(page)](int a, int b) {
                        return pixels[a] == pixels[b] || difference(pixels[a], pixels[b]) <= sameColour;
                    }),
          m_squares(m_regions.regions().size()),
          m_isSurrounding(m_regions.regions().size())
    {
        measureSquares();
        findSurrounding();
        for (size_t region = 0; region < m_regions.regions().size(); ++region)
            m_isGround.push_back(isGround(region));
    }

    bool isGroundAt(int pixel) const { return m_isGround[size_t(m_regions.regionAt(pixel))]; }

    double share() const
    {
        double area = 0;
        for (size_t region = 0; region < m_isGround.size(); ++region)
            area += m_isGround[region] ? m_regions.regions()[region].area : 0;
        return area / (double(m_size.width()) * m_size.height());
    }

private:
    // The side of the largest square inside each region, by the usual recurrence over the three neighbours before.
    void measureSquares()
    {
        const int width = m_size.width();
        std::vector<int> sides(size_t(width), 0);
        for (int y = 0; y < m_size.height(); ++y) {
            int diagonal = 0;
            for (int x = 0, pixel = y * width; x < width; ++x, ++pixel) {
                const int region = m_regions.regionAt(pixel);
                int& side = sides[size_t(x)];
                const int above = side;
                const bool isInside = x > 0 && y > 0 && m_regions.regionAt(pixel - 1) == region &&
                                      m_regions.regionAt(pixel - width) == region &&
                                      m_regions.regionAt(pixel - width - 1) == region;
                side = isInside ? 1 + std::min({above, sides[size_t(x - 1)], diagonal}) : 1;
                diagonal = above;
                m_squares[size_t(region)] = std::max(m_squares[size_t(region)], side);
            }
        }
    }

    // A region surrounds what begins right of it and stays within its box.
    void findSurrounding()
    {
        const auto& regions = m_regions.regions();
        for (const auto& inner : regions) {
            if (inner.left == 0)
                continue;
            const int outer = m_regions.regionAt(inner.firstPixel - 1);
            if (regions[size_t(outer)].box().contains(inner.box(), true))
                m_isSurrounding[size_t(outer)] = true;
        }
    }

    bool isGround(size_t number) const
    {
        const auto& region = m_regions.regions()[number];
        const int square = m_squares[number];
        if (square >= wideGround)
            return true;
        const bool isChip = region.height() >= leastChipHeight && region.width() * 10 >= region.height() * 14 &&
                            region.area * 10 >= region.width() * region.height() * 6;
        return isChip && m_isSurrounding[number] && square * 4 >= region.height();
    }

    QSize m_size;
    PixelRegions m_regions;
    std::vector<int> m_squares;
    std::vector<bool> m_isSurrounding;
    std::vector<bool> m_isGround;
};

// For each pixel the colour of the nearest ground, counting steps along rows and columns.
class GroundColours {
public:
    GroundColours(const QImage& page, const Grounds& grounds)
        : m_width(page.width()),
          m_count(page.width() * page.height()),
          m_colours(size_t(m_count)),
          m_steps(size_t(m_count), tooFar)
    {
        for (int pixel = 0; pixel < m_count; ++pixel)
            if (grounds.isGroundAt(pixel)) {
                m_colours[size_t(pixel)] = pixelsOf(page)[pixel];
                m_steps[size_t(pixel)] = 0;
            }
        const int height = page.height();
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < m_width; ++x)
                takeFrom(y * m_width + x, x > 0 ? -1 : 0, y > 0 ? -m_width : 0);
        for (int y = height - 1; y >= 0; --y)
            for (int x = m_width - 1; x >= 0; --x)
                takeFrom(y * m_width + x, x + 1 < m_width ? 1 : 0, y + 1 < height ? m_width : 0);
    }

    QRgb at(int pixel) const { return m_colours[size_t(pixel)]; }

private:
    static constexpr int tooFar = 1 << 20;

    // The neighbours at these distances, 0 for none.
    void takeFrom(int pixel, int beside, int above)
    {
        if (m_steps[size_t(pixel)] == 0)
            return;
        if (beside != 0)
            take(pixel, pixel + beside);
        if (above != 0)
            take(pixel, pixel + above);
    }

    void take(int pixel, int neighbour)
    {
        const int steps = m_steps[size_t(neighbour)] + 1;
        if (steps >= m_steps[size_t(pixel)])
            return;
        m_steps[size_t(pixel)] = steps;
        m_colours[size_t(pixel)] = m_colours[size_t(neighbour)];
    }

    int m_width;
    int m_count;
    std::vector<QRgb> m_colours;
    std::vector<int> m_steps;
};

std::vector<uchar> contrasts(const QImage& page, const Grounds& grounds)
{
    const GroundColours colours(page, grounds);
    std::vector<uchar> result(size_t(page.width()) * size_t(page.height()));
    for (size_t pixel = 0; pixel < result.size(); ++pixel)
        if (!grounds.isGroundAt(int(pixel)))
            result[pixel] = uchar(difference(pixelsOf(page)[pixel], colours.at(int(pixel))));
    return result;
}

// Every blob as dark as can be, by its own darkest place.
QImage stretched(const std::vector<uchar>& contrast, QSize size)
{
    const auto row = [&](int y) { return contrast.data() + size_t(y) * size_t(size.width()); };
    const InkBlobs blobs(size, [&](int x, int y) { return row(y)[x] >= leastInk; });
    std::vector<int> highest(blobs.boxes().size());
    for (const InkBlobs::Run& run : blobs.runs()) {
        int& most = highest[size_t(run.blob)];
        most = std::max<int>(most, *std::max_element(row(run.y) + run.left, row(run.y) + run.end));
    }
    QImage ink(size, QImage::Format_Grayscale8);
    ink.fill(Qt::white);
    for (const InkBlobs::Run& run : blobs.runs())
        if (const int most = highest[size_t(run.blob)]; most >= leastContrast)
            std::transform(row(run.y) + run.left, row(run.y) + run.end, ink.scanLine(run.y) + run.left,
                           [most](uchar value) { return uchar(255 - value * 255 / most); });
    return ink;
}

QImage lightPage(const QImage& page)
{
    QImage grey = page.convertToFormat(QImage::Format_Grayscale8);
    const QImage sample =
        grey.scaled(64, 64, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).convertToFormat(QImage::Format_Grayscale8);
    qint64 sum = 0;
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x)
            sum += sample.constScanLine(y)[x];
    if (sum < 64 * 64 * 110)
        grey.invertPixels();
    return grey;
}

} // namespace

QImage InkPage::from(const QImage& picture)
{
    const QImage page = opaque(picture);
    const Grounds grounds(page);
    return grounds.share() < leastGroundShare ? lightPage(page) : stretched(contrasts(page, grounds), page.size());
}

std::vector<QRect> InkPage::blobs(const QImage& ink)
{
    return InkBlobs(ink.size(), [&ink](int x, int y) { return ink.constScanLine(y)[x] < darkInk; }).boxes();
}

// Marks such as quotes, dots and carets may outnumber letters, but letters have the more height to show.
int InkPage::letterHeight(const std::vector<QRect>& blobs)
{
    std::vector<int> heights;
    for (const QRect& blob : blobs)
        if (blob.height() >= 4 && blob.height() <= 120 && blob.width() <= 4 * blob.height())
            heights.push_back(blob.height());
    std::ranges::sort(heights);
    const int half = std::accumulate(heights.begin(), heights.end(), 0) / 2;
    int below = 0;
    const auto middle = std::ranges::find_if(heights, [&](int height) { return (below += height) > half; });
    return middle == heights.end() ? 0 : *middle;
}

} // namespace Kovrel
