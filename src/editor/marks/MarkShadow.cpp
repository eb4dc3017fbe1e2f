#include "editor/marks/MarkShadow.h"

#include "imaging/BlendMode.h"

#include <QPainter>
#include <QPainterPathStroker>

namespace Kovrel {

namespace {

constexpr int rings = 3;
constexpr double ringOpacity = 0.08;

// A ring around the ink, and not the ink itself, through which a translucent colour would show it.
QPainterPath ring(const QPainterPath& ink, double reach)
{
    QPainterPathStroker stroker;
    stroker.setWidth(2 * reach);
    stroker.setJoinStyle(Qt::RoundJoin);
    QPainterPath path = stroker.createStroke(ink);
    path.setFillRule(Qt::WindingFill);
    return path;
}

} // namespace

// Paths, not a blur: they give the same pixels however the painter is clipped. They are turned with their mark before
// they are filled, since a turned painter's clip is no rectangle.
void MarkShadow::draw(QPainter& painter, const std::vector<QPainterPath>& ink, double scale)
{
    const QTransform toDevice = painter.combinedTransform();
    painter.save();
    painter.resetTransform();
    for (int index = 1; index <= rings; ++index) {
        std::vector<QPainterPath> paths;
        paths.reserve(ink.size());
        for (const QPainterPath& each : ink)
            paths.push_back(toDevice.map(ring(each, index * reach / rings * scale)));
        Blending::fillPaths(painter, paths, QColor::fromRgbF(0, 0, 0, float(ringOpacity)), BlendMode::normal);
    }
    painter.restore();
}

} // namespace Kovrel
