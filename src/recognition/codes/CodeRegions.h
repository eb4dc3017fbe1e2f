#pragma once

#include <QRect>

#include <vector>

namespace Kovrel {

// Which parts of a picture are searched for codes. Stateless; any thread.
namespace CodeRegions {

constexpr int tileSide = 1200;
constexpr int tileStep = 840; // neighbours share 360 pixels, so that what one cuts lies whole in the next
constexpr int reducedFrom = 2400;

struct Region {
    QRect pixels;           // of the picture, origin top-left
    bool isReduced = false; // looked at in half its size
    bool operator==(const Region&) const = default;
};

// Where tiles begin on an axis: in steps, the last one flush with the end; one that would lie less than half a step
// behind its neighbour takes the neighbour's place.
std::vector<int> axisStarts(int length, int tile, int step);

// The whole picture for the full pass, tiles for the tile pass where its long side is over a tile's, and with the full
// pass the whole reduced by half where that side is over 2400: large codes are found better there.
std::vector<Region> regions(QSize size, bool fullPass, bool tilePass);

} // namespace CodeRegions

} // namespace Kovrel
