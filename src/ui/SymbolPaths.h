#pragma once

#include <QPainterPath>

#include <initializer_list>

namespace Kovrel {

// What symbols are drawn of: paths in a unit box, y down.
namespace SymbolPaths {

inline QPainterPath lines(std::initializer_list<QPointF> points)
{
    QPainterPath path(*points.begin());
    for (const QPointF& point : points)
        path.lineTo(point);
    return path;
}

} // namespace SymbolPaths

} // namespace Kovrel
