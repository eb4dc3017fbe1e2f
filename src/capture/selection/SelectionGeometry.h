#pragma once

#include "platform/Display.h"
#include "platform/Windows.h"

#include <QRegion>

#include <optional>
#include <vector>

namespace Kovrel {

// The arithmetic of selecting.
namespace SelectionGeometry {

// A rectangle of points moved to the pixel grid of a display, at least one pixel in each direction. Unchanged when it
// is empty or the scale is not positive.
Rect snapped(const Rect& rect, double scale);

// The corner between root pixels that the pointer marks: the upper left corner of its pixel, but beyond the last
// pixel before the edge of the desktop, so that a drag reaches that one too.
QPoint cornerAt(QPoint rootPixel, const DisplayList& displays);

// The root pixels between two corners; as a square it is as big as the longer side, and stays within the desktop.
QRect between(QPoint anchor, QPoint corner);
QPoint squareCorner(QPoint anchor, QPoint corner, const QRect& desktop);

// The smallest rectangle of root pixels that holds all displays.
QRect desktopRect(const DisplayList& displays);

// Windows are front to back. Only those on the screen can be picked, and no desktop, no panel, no window of
// `ownPid`; what lies in front hides what is behind.
bool isPickable(const WindowInfo& window, qint64 ownPid);
std::optional<size_t> hoveredWindowIndex(const std::vector<WindowInfo>& windows, QPoint rootPixel, qint64 ownPid);
// The windows of which some part that can be seen lies in the rectangle.
std::vector<size_t> touchedIndices(const std::vector<WindowInfo>& windows, const QRect& rootPixels, qint64 ownPid);
// What no window in front of it covers of a window.
QRegion partInSight(const std::vector<WindowInfo>& windows, const WindowInfo& window, qint64 ownPid);

} // namespace SelectionGeometry

} // namespace Kovrel
