#include "recognition/codes/CodePlaces.h"

#include "imaging/InkBlobs.h"

#include <algorithm>

namespace Kovrel {

namespace {

constexpr int blockSide = 4;     // pixels
constexpr int leastRange = 24;   // between the lightest and the darkest pixel of a busy block, of 255
constexpr int windowSide = 7;    // blocks: 28 pixels, somewhat more than the smallest code has modules
constexpr int busyBlocks = 42;   // of those of a window
constexpr int quietZone = 16;    // pixels
constexpr double mostArea = 0.6; // of the picture

// A grid of blocks of a picture.
class Blocks {
public:
    explicit Blocks(const QImage& grey)
        : m_size(grey.width() / blockSide, grey.height() / blockSide),
          m_isBusy(size_t(m_size.width()) * size_t(m_size.height()))
    {
        for (int y = 0; y < m_size.height(); ++y)
            measureRow(grey, y);
    }

    QSize size() const { return m_size; }

    bool isBusy(int x, int y) const { return m_isBusy[index(x, y)]; }

    // Busy are now those that lie in a window full of busy ones.
    void keepFullWindows()
    {
        std::vector<char> kept(m_isBusy.size());
        std::vector<int> columns(size_t(m_size.width()));
        for (int y = 0; y < m_size.height(); ++y) {
            for (int x = 0; x < m_size.width(); ++x)
                columns[size_t(x)] += isBusy(x, y) - (y >= windowSide && isBusy(x, y - windowSide));
            if (y + 1 >= windowSide)
                keepInRow(columns, y, kept);
        }
        m_isBusy = std::move(kept);
    }

private:
    size_t index(int x, int y) const { return size_t(y) * size_t(m_size.width()) + size_t(x); }

    void measureRow(const QImage& grey, int y)
    {
        std::vector<uchar> lowest(size_t(m_size.width()), 255);
        std::vector<uchar> highest(size_t(m_size.width()), 0);
        for (int line = 0; line < blockSide; ++line) {
            const uchar* from = grey.constScanLine(y * blockSide + line);
            for (size_t x = 0; x < lowest.size(); ++x, from += blockSide) {
                lowest[x] = std::min({lowest[x], from[0], from[1], from[2], from[3]});
                highest[x] = std::max({highest[x], from[0], from[1], from[2], from[3]});
            }
        }
        for (size_t x = 0; x < lowest.size(); ++x)
            m_isBusy[index(int(x), y)] = char(highest[x] - lowest[x] >= leastRange);
    }

    // The windows whose lowest row this is; `columns` counts the busy blocks in their height.
    void keepInRow(const std::vector<int>& columns, int y, std::vector<char>& kept) const
    {
        int count = 0;
        for (int x = 0; x < m_size.width(); ++x) {
            count += columns[size_t(x)] - (x >= windowSide ? columns[size_t(x - windowSide)] : 0);
            if (x + 1 < windowSide || count < busyBlocks)
                continue;
            for (int row = y - windowSide + 1; row <= y; ++row)
                std::fill_n(kept.begin() + qsizetype(index(x - windowSide + 1, row)), windowSide, char(true));
        }
    }

    QSize m_size;
    std::vector<char> m_isBusy;
};

} // namespace

std::vector<QRect> CodePlaces::of(const QImage& grey)
{
    Blocks blocks(grey);
    blocks.keepFullWindows();
    const InkBlobs areas(blocks.size(), [&](int x, int y) { return blocks.isBusy(x, y); });
    std::vector<QRect> places;
    double area = 0;
    for (const QRect& box : areas.boxes()) {
        const QRect pixels(box.topLeft() * blockSide, box.size() * blockSide);
        places.push_back(pixels.adjusted(-quietZone, -quietZone, quietZone, quietZone) & grey.rect());
        area += double(places.back().width()) * places.back().height();
    }
    if (area > mostArea * grey.width() * grey.height())
        return {grey.rect()};
    return places;
}

} // namespace Kovrel
