#include "editor/marks/HighlighterInk.h"

#include "editor/marks/AnnotationExtent.h"
#include "editor/marks/AnnotationInk.h"
#include "imaging/BlendMode.h"

#include <QPainter>
#include <QPainterPathStroker>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>
#include <utility>

namespace Kovrel {

namespace {

// The nib's height by its width.
constexpr double nibAspect = 2.5;
constexpr double onLightPage = 0.85;
constexpr double liftStep = 0.05;
constexpr double mostLift = 0.3;

double distance(Point one, Point other)
{
    return std::hypot(one.x - other.x, one.y - other.y);
}

std::vector<Point> thinnedOut(const std::vector<Point>& points, double least)
{
    std::vector<Point> kept;
    for (const Point& point : points)
        if (kept.empty() || distance(point, kept.back()) >= least)
            kept.push_back(point);
    if (!points.empty() && kept.back() != points.back())
        kept.push_back(points.back());
    return kept;
}

QPainterPath sweep(const std::vector<Point>& points, double tip, double scale)
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    if (points.empty())
        return path;
    const double halfHeight = tip * scale;
    const double halfWidth = halfHeight / nibAspect;
    if (points.size() == 1) {
        path.addEllipse(QPointF(points[0].x * scale, points[0].y * scale), halfWidth, halfHeight);
        return path;
    }
    path.moveTo(points[0].x * scale, points[0].y * scale / nibAspect);
    for (const Point& point : points)
        path.lineTo(point.x * scale, point.y * scale / nibAspect);
    QPainterPathStroker stroker;
    stroker.setWidth(2 * halfWidth);
    stroker.setCapStyle(Qt::RoundCap);
    stroker.setJoinStyle(Qt::RoundJoin);
    stroker.setMiterLimit(10);
    QPainterPath outline = QTransform::fromScale(1, nibAspect).map(stroker.createStroke(path));
    outline.setFillRule(Qt::WindingFill);
    return outline;
}

// Strokes of one colour on pages of one kind.
struct Layer {
    const Annotation* last = nullptr; // whose page counts
    std::vector<QPainterPath> sweeps;
};

std::vector<QPainterPath> sweepsOf(const Annotation& mark, double scale)
{
    std::vector<QPainterPath> sweeps;
    const double tip = HighlighterInk::tip(mark);
    for (const auto& piece : AnnotationInk::pieces(thinnedOut(mark.points, tip), scale))
        sweeps.push_back(sweep(piece, tip, scale));
    return sweeps;
}

// Made of all marks: which of them are in view must not change the colour or the order of a layer.
std::vector<Layer> layersOf(const std::vector<const Annotation*>& highlighters, double scale,
                            const std::optional<QRectF>& culledTo)
{
    std::vector<Layer> layers; // in the order in which their first strokes were made
    std::map<std::pair<QRgb, bool>, size_t> places;
    for (const Annotation* const mark : highlighters) {
        const std::pair key(AnnotationInk::colorOf(*mark).rgba(), mark->highlightOnDark);
        const auto [place, isNew] = places.try_emplace(key, layers.size());
        if (isNew)
            layers.emplace_back();
        Layer& layer = layers[place->second];
        layer.last = mark;
        if (!culledTo || culledTo->intersects(AnnotationExtent::cullBound(*mark, scale)))
            std::ranges::move(sweepsOf(*mark, scale), std::back_inserter(layer.sweeps));
    }
    return layers;
}

QColor withAlpha(QColor color, double alpha)
{
    color.setAlphaF(float(alpha));
    return color;
}

} // namespace

double HighlighterInk::tip(const Annotation& highlighter)
{
    return 6.5 * std::max(highlighter.lineWidth, 1.0) * std::max(highlighter.tipScale, 0.0001) / 2;
}

QPainterPath HighlighterInk::highlighterSweep(const Annotation& highlighter, double tip, double scale)
{
    return sweep(thinnedOut(highlighter.points, tip), tip, scale);
}

bool HighlighterInk::highlighterSweepContains(const Annotation& highlighter, Point point)
{
    return highlighterSweep(highlighter, tip(highlighter), 1).contains({point.x, point.y});
}

double HighlighterInk::lift(double pageLuma)
{
    // A third of a double's last digit must not cost a step: 0.3 / 0.05 is a little below 6.
    const double step = std::floor(std::min(0.5 - pageLuma, mostLift) / liftStep + 1e-9);
    return std::max(step, 0.0) * liftStep;
}

void HighlighterInk::drawHighlightLayer(QPainter& painter, const std::vector<const Annotation*>& highlighters,
                                        double scale, const std::optional<QRectF>& culledTo)
{
    for (const Layer& layer : layersOf(highlighters, scale, culledTo)) {
        const QColor color = AnnotationInk::colorOf(*layer.last);
        if (!layer.last->highlightOnDark) {
            Blending::fillPaths(painter, layer.sweeps, withAlpha(color, onLightPage), BlendMode::multiply);
            continue;
        }
        Blending::fillPaths(painter, layer.sweeps, color, BlendMode::color);
        if (const double alpha = lift(layer.last->highlightPageLuma); alpha > 0)
            Blending::fillPaths(painter, layer.sweeps, withAlpha(color, alpha), BlendMode::plusLighter);
    }
}

} // namespace Kovrel
