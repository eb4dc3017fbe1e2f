#include "picking/ColorLoupeGeometry.h"

#include <cmath>

namespace Kovrel {

namespace {

// Also false for what is no number.
bool isIndex(double value, int size)
{
    return value >= 0 && value < size;
}

} // namespace

std::optional<QPoint> ColorLoupeGeometry::pixel(Point at, const LoupeStill& in)
{
    const Rect& frame = in.display.frame;
    if (!frame.contains(at))
        return std::nullopt;
    const double column = std::floor((at.x - frame.minX()) * in.display.scale);
    const double row = std::floor(in.display.scale * (frame.maxY() - at.y));
    if (!isIndex(column, in.image.width()) || !isIndex(row, in.image.height()))
        return std::nullopt;
    return QPoint(int(column), int(row));
}

Point ColorLoupeGeometry::middle(QPoint rootPixel, const Display& on)
{
    return on.toPoints({rootPixel, QSize(1, 1)}).centre();
}

} // namespace Kovrel
