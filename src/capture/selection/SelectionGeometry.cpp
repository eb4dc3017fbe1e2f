#include "capture/selection/SelectionGeometry.h"

#include <cmath>

namespace Kovrel {

Rect SelectionGeometry::snapped(const Rect& rect, double scale)
{
    if (!(scale > 0) || rect.isEmpty())
        return rect;
    const auto snap = [scale](double value) { return std::round(value * scale) / scale; };
    const double minX = snap(rect.minX());
    const double minY = snap(rect.minY());
    return {minX, minY, std::max(snap(rect.maxX()) - minX, 1 / scale), std::max(snap(rect.maxY()) - minY, 1 / scale)};
}

QPoint SelectionGeometry::cornerAt(QPoint rootPixel, const DisplayList& displays)
{
    QPoint corner = rootPixel;
    if (!displayAtPixel(displays, rootPixel + QPoint(1, 0)))
        corner.rx() += 1;
    if (!displayAtPixel(displays, rootPixel + QPoint(0, 1)))
        corner.ry() += 1;
    return corner;
}

QRect SelectionGeometry::between(QPoint anchor, QPoint corner)
{
    return {QPoint(std::min(anchor.x(), corner.x()), std::min(anchor.y(), corner.y())),
            QSize(std::abs(anchor.x() - corner.x()), std::abs(anchor.y() - corner.y()))};
}

QPoint SelectionGeometry::squareCorner(QPoint anchor, QPoint corner, const QRect& desktop)
{
    const bool goesLeft = corner.x() < anchor.x();
    const bool goesUp = corner.y() < anchor.y();
    const int roomX = goesLeft ? anchor.x() - desktop.left() : desktop.left() + desktop.width() - anchor.x();
    const int roomY = goesUp ? anchor.y() - desktop.top() : desktop.top() + desktop.height() - anchor.y();
    const QRect rect = between(anchor, corner);
    const int side = std::min({std::max(rect.width(), rect.height()), roomX, roomY});
    return anchor + QPoint(goesLeft ? -side : side, goesUp ? -side : side);
}

QRect SelectionGeometry::desktopRect(const DisplayList& displays)
{
    QRect desktop;
    for (const Display& display : displays)
        desktop |= display.pixelRect;
    return desktop;
}

namespace {

// What of our own floats above everything, as the overlay, is as if it were not there. Windows with a title are like
// those of other programs.
bool isGlass(const WindowInfo& window, qint64 ownPid)
{
    return window.ownerPid == ownPid && window.type != WindowType::normal && window.type != WindowType::dialog;
}

} // namespace

bool SelectionGeometry::isPickable(const WindowInfo& window, qint64 ownPid)
{
    return window.isOnScreen && window.type != WindowType::desktop && window.type != WindowType::dock &&
           !isGlass(window, ownPid);
}

std::optional<size_t> SelectionGeometry::hoveredWindowIndex(const std::vector<WindowInfo>& windows, QPoint rootPixel,
                                                            qint64 ownPid)
{
    const auto touched = touchedIndices(windows, QRect(rootPixel, QSize(1, 1)), ownPid);
    return touched.empty() ? std::nullopt : std::optional(touched.front());
}

std::vector<size_t> SelectionGeometry::touchedIndices(const std::vector<WindowInfo>& windows, const QRect& rootPixels,
                                                      qint64 ownPid)
{
    std::vector<size_t> touched;
    QRegion open(rootPixels); // what no window in front covers
    for (size_t index = 0; index < windows.size() && !open.isEmpty(); ++index) {
        const WindowInfo& window = windows[index];
        if (!window.isOnScreen || isGlass(window, ownPid) || !open.intersects(window.pixelRect))
            continue;
        if (isPickable(window, ownPid))
            touched.push_back(index);
        open -= window.pixelRect;
    }
    return touched;
}

QRegion SelectionGeometry::partInSight(const std::vector<WindowInfo>& windows, const WindowInfo& window, qint64 ownPid)
{
    QRegion part(window.pixelRect);
    for (const WindowInfo& other : windows) {
        if (other.id == window.id)
            break;
        if (other.isOnScreen && !isGlass(other, ownPid))
            part -= other.pixelRect;
    }
    return part;
}

} // namespace Kovrel
