#pragma once

#include <QPainter>

namespace Kovrel {

// What a painter on an image covers, in pixels, y down.
namespace PainterPixels {

inline QRect all(const QPainter& painter)
{
    return {0, 0, painter.device()->width(), painter.device()->height()};
}

// All that its clip, a rectangle, lets through.
inline QRect clip(const QPainter& painter)
{
    if (!painter.hasClipping())
        return all(painter);
    return painter.combinedTransform().mapRect(painter.clipBoundingRect()).toAlignedRect() & all(painter);
}

} // namespace PainterPixels

} // namespace Kovrel
