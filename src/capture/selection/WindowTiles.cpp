#include "capture/selection/WindowTiles.h"

#include "capture/selection/SelectionGeometry.h"

#include <algorithm>
#include <cmath>

namespace Kovrel {

namespace {

struct Span {
    int begin, end;
};

bool isSame(Span one, Span other, double slack)
{
    return std::abs(one.begin - other.begin) <= slack && std::abs(one.end - other.end) <= slack;
}

// Of two spans on one axis that do not overlap: what lies between them.
bool isClose(Span one, Span other, double gap)
{
    const int between = std::max(one.begin, other.begin) - std::min(one.end, other.end);
    return between >= 0 && between <= gap;
}

bool shareEdge(const QRect& one, const QRect& other, double scale)
{
    const Span oneX{one.x(), one.x() + one.width()};
    const Span otherX{other.x(), other.x() + other.width()};
    const Span oneY{one.y(), one.y() + one.height()};
    const Span otherY{other.y(), other.y() + other.height()};
    const double slack = WindowTiles::slack * scale;
    const double gap = WindowTiles::widestGap * scale;
    return (isClose(oneX, otherX, gap) && isSame(oneY, otherY, slack)) ||
           (isClose(oneY, otherY, gap) && isSame(oneX, otherX, slack));
}

} // namespace

std::vector<size_t> WindowTiles::groupAt(const std::vector<WindowInfo>& windows, QPoint rootPixel, double scale,
                                         qint64 ownPid)
{
    // A pointer in the middle of a gap reaches both sides of it.
    const int distance = int(std::ceil(reach * scale));
    const QRect around = QRect(rootPixel, QSize(1, 1)).adjusted(-distance, -distance, distance, distance);
    std::vector<size_t> group = SelectionGeometry::touchedIndices(windows, around, ownPid);
    std::erase_if(group, [&](size_t index) { return windows[index].type != WindowType::normal; });
    if (group.size() < 2)
        return {};
    const QRect first = windows[group.front()].pixelRect;
    std::erase_if(group, [&](size_t index) {
        return index != group.front() && !shareEdge(first, windows[index].pixelRect, scale);
    });
    return group.size() < 2 ? std::vector<size_t>() : group;
}

std::vector<WindowInfo> WindowTiles::liveTileMembers(const std::vector<WindowInfo>& windows, double scale)
{
    const auto standsByFirst = [&](const WindowInfo& window) {
        return shareEdge(windows.front().pixelRect, window.pixelRect, scale);
    };
    const bool isGroup = windows.size() > 1 && std::all_of(windows.begin() + 1, windows.end(), standsByFirst);
    return isGroup ? windows : std::vector<WindowInfo>();
}

} // namespace Kovrel
