#include "editor/marks/MarkShadow.h"

#include <QPainter>

namespace Kovrel {

namespace {

constexpr int rings = 3;
constexpr double ringOpacity = 0.08;

// Around the ink, and not the ink itself, through which a translucent colour would show it.
QPen ring(double width)
{
    return {QColor::fromRgbF(0, 0, 0, float(ringOpacity)), width, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin};
}

} // namespace

// Strokes, not a blur: they give the same pixels however the painter is clipped. They are turned with their mark before
// they are drawn, since a turned painter's clip is no rectangle.
void MarkShadow::draw(QPainter& painter, const std::vector<QPainterPath>& ink, double scale)
{
    QPainterPath all;
    for (const QPainterPath& each : ink)
        all.addPath(each);
    all = painter.combinedTransform().map(all);
    painter.save();
    painter.resetTransform();
    for (int index = 1; index <= rings; ++index)
        painter.strokePath(all, ring(2 * index * reach / rings * scale));
    painter.restore();
}

} // namespace Kovrel
