#include "recognition/codes/CodeRegions.h"

namespace Kovrel {

namespace {

using namespace CodeRegions;

void appendTiles(QSize size, std::vector<Region>& regions)
{
    for (const int y : axisStarts(size.height(), tileSide, tileStep))
        for (const int x : axisStarts(size.width(), tileSide, tileStep))
            regions.push_back({QRect({x, y}, QSize(tileSide, tileSide).boundedTo(size))});
}

} // namespace

std::vector<int> CodeRegions::axisStarts(int length, int tile, int step)
{
    std::vector<int> starts{0};
    const int last = length - tile;
    if (last <= 0)
        return starts;
    while (starts.back() + step < last)
        starts.push_back(starts.back() + step);
    if (starts.size() > 1 && last - starts.back() < step / 2)
        starts.back() = last;
    else
        starts.push_back(last);
    return starts;
}

std::vector<CodeRegions::Region> CodeRegions::regions(QSize size, bool fullPass, bool tilePass)
{
    std::vector<Region> all;
    const int longSide = std::max(size.width(), size.height());
    const QRect whole({0, 0}, size);
    if (fullPass)
        all.push_back({whole});
    if (tilePass && longSide > tileSide)
        appendTiles(size, all);
    if (fullPass && longSide > reducedFrom)
        all.push_back({whole, true});
    return all;
}

} // namespace Kovrel
