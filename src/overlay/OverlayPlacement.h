#pragma once

#include <QRect>

namespace Kovrel {

// Where decorations stand, in root pixels: always whole within the display, their room, if they fit there.
namespace OverlayPlacement {

// Moved as little as possible to lie within.
QRect keptWithin(QRect rect, const QRect& room);

// To the lower right of the pointer; on the other side where there is no room.
QRect besidePointer(QPoint pointer, QSize size, int gap, const QRect& room);

// Under a rectangle, or over it, or inside of it: where there is room.
QRect besideArea(const QRect& area, QSize size, int gap, const QRect& room);

// In the middle, near the lower edge.
QRect atBottom(QSize size, int fromBottom, const QRect& room);

} // namespace OverlayPlacement

} // namespace Kovrel
