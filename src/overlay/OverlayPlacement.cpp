#include "overlay/OverlayPlacement.h"

namespace Kovrel {

QRect OverlayPlacement::keptWithin(QRect rect, const QRect& room)
{
    if (rect.right() > room.right())
        rect.moveRight(room.right());
    if (rect.bottom() > room.bottom())
        rect.moveBottom(room.bottom());
    if (rect.left() < room.left())
        rect.moveLeft(room.left());
    if (rect.top() < room.top())
        rect.moveTop(room.top());
    return rect;
}

QRect OverlayPlacement::besidePointer(QPoint pointer, QSize size, int gap, const QRect& room)
{
    QRect rect(pointer + QPoint(gap, gap), size);
    if (rect.right() > room.right())
        rect.moveRight(pointer.x() - gap);
    if (rect.bottom() > room.bottom())
        rect.moveBottom(pointer.y() - gap);
    return keptWithin(rect, room);
}

QRect OverlayPlacement::besideArea(const QRect& area, QSize size, int gap, const QRect& room)
{
    QRect rect({area.center().x() - size.width() / 2, area.y() + area.height() + gap}, size);
    if (rect.bottom() > room.bottom())
        rect.moveTop(area.y() - gap - size.height());
    if (rect.top() < room.top())
        rect.moveTop(area.y() + area.height() - gap - size.height());
    return keptWithin(rect, room);
}

QRect OverlayPlacement::atBottom(QSize size, int fromBottom, const QRect& room)
{
    return {{room.center().x() - size.width() / 2, room.y() + room.height() - fromBottom - size.height()}, size};
}

} // namespace Kovrel
