#include "editor/marks/AnnotationInk.h"

#include "editor/marks/ArrowInk.h"
#include "editor/marks/HighlighterInk.h"
#include "model/HexColor.h"

#include <QPainterPathStroker>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Kovrel {

namespace {

using Kind = Annotation::Kind;

constexpr double mostTargetPoints = 1e6;
constexpr double spotlightRadius = 6;
constexpr size_t mostPointsInPiece = 256;
constexpr double longestPiece = 4000; // target points

bool isUsable(double value, double scale)
{
    return std::abs(value) * scale <= mostTargetPoints; // false for NaN
}

bool isUsableSize(double value, double scale)
{
    return value >= 0 && isUsable(value, scale);
}

QPainterPath stroked(const QPainterPath& path, const QPen& pen)
{
    return pen.widthF() > 0 ? QPainterPathStroker(pen).createStroke(path) : QPainterPath();
}

double cornerRadius(const Annotation& mark, const QRectF& rect, double scale)
{
    const bool isRounded = mark.kind == Kind::rectangle && mark.rounded;
    const double wanted = mark.kind == Kind::spotlight ? spotlightRadius : isRounded ? 8 + mark.lineWidth : 0;
    return std::min(wanted * scale, std::min(rect.width(), rect.height()) / 2);
}

// What a click leaves.
QPainterPath dotInk(const Annotation& mark, double scale)
{
    QPainterPath dot;
    dot.addEllipse(AnnotationInk::scaled(mark.points[0], scale), mark.lineWidth * scale / 2,
                   mark.lineWidth * scale / 2);
    return dot;
}

QPainterPath stepInk(const Annotation& mark, double scale)
{
    QPainterPath path;
    if (mark.points.empty())
        return path;
    const double radius = AnnotationInk::stepRadius(mark, scale) + AnnotationInk::stepRingWidth(mark, scale) / 2;
    path.addEllipse(AnnotationInk::scaled(mark.points.back(), scale), radius, radius);
    return path;
}

QPainterPath labelInk(const Annotation& mark, double scale)
{
    const QRectF rect = AnnotationInk::scaled(mark.textRect(), scale);
    const double radius = AnnotationInk::chipRadius(mark, scale);
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addRoundedRect(rect, radius, radius);
    if (mark.textStyle == Annotation::TextStyle::bubble)
        path.addPath(AnnotationInk::leaderInk(rect, AnnotationInk::scaled(mark.bubbleTailTip(), scale),
                                              mark.fontSize * scale, radius));
    return path;
}

// Where a tail leaves a chip.
struct TailFoot {
    QPointF middle;
    QPointF half;     // from the middle to one end, along the edge
    QPointF outwards; // of length 1
};

// On the straight part of the side that is nearest to the tip, as near to it as the corners' arcs allow.
TailFoot footOf(const QRectF& chip, QPointF tip, double fontSize, double cornerRadius)
{
    const QPointF nearest = AnnotationInk::nearestPointOnRoundedRect(tip, chip, 0);
    const QPointF away = tip - nearest;
    const bool isVertical = std::abs(away.y()) >= std::abs(away.x());
    const double straight = (isVertical ? chip.width() : chip.height()) / 2 - cornerRadius;
    const double half = std::clamp(0.5 * fontSize, 0.0, std::max(straight, 0.1 * fontSize));
    const double slide = std::max(straight - half, 0.0);
    const QPointF offset = nearest - chip.center();
    if (isVertical) {
        const double side = away.y() < 0 ? -1 : 1;
        return {{chip.center().x() + std::clamp(offset.x(), -slide, slide), nearest.y()}, {-side * half, 0}, {0, side}};
    }
    const double side = away.x() < 0 ? -1 : 1;
    return {{nearest.x(), chip.center().y() + std::clamp(offset.y(), -slide, slide)}, {0, side * half}, {side, 0}};
}

// A stroke that is a whole number of pixels wide lies on whole pixels, with `at` in its middle.
double onPixels(double at, double width)
{
    return width == std::round(width) ? std::round(at - width / 2) + width / 2 : at;
}

QRectF onPixels(const QRectF& rect, double width)
{
    return {QPointF(onPixels(rect.left(), width), onPixels(rect.top(), width)),
            QPointF(onPixels(rect.right(), width), onPixels(rect.bottom(), width))};
}

QPainterPath straightLine(QPointF from, QPointF to, double width)
{
    if (from.y() == to.y())
        from.ry() = to.ry() = onPixels(from.y(), width);
    else if (from.x() == to.x())
        from.rx() = to.rx() = onPixels(from.x(), width);
    QPainterPath path(from);
    path.lineTo(to);
    return path;
}

QPainterPath outlinedShape(const Annotation& mark, double scale)
{
    QPainterPath path = AnnotationInk::shapePath(mark, scale);
    path.setFillRule(Qt::WindingFill);
    path.addPath(stroked(path, AnnotationInk::pen(mark, scale)));
    return path;
}

} // namespace

QColor AnnotationInk::colorOf(const Annotation& mark)
{
    return HexColor::parse(mark.colorHex).value_or(QColor(Qt::black));
}

QRectF AnnotationInk::scaled(const Rect& rect, double scale)
{
    return {rect.x * scale, rect.y * scale, rect.width * scale, rect.height * scale};
}

QPointF AnnotationInk::scaled(Point point, double scale)
{
    return {point.x * scale, point.y * scale};
}

bool AnnotationInk::isDrawable(const Annotation& mark, double scale)
{
    const auto isPointUsable = [scale](Point point) { return isUsable(point.x, scale) && isUsable(point.y, scale); };
    return scale > 0 && !mark.points.empty() && std::ranges::all_of(mark.points, isPointUsable) &&
           (!mark.curveControl || isPointUsable(*mark.curveControl)) && isUsableSize(mark.lineWidth, scale) &&
           isUsableSize(mark.fontSize, scale) && isUsableSize(mark.tipScale, scale) && isUsable(mark.rotation, 1) &&
           (mark.kind != Kind::text || mark.fontSize * scale >= 0.1);
}

QPainterPath AnnotationInk::freehandPath(const Annotation& mark, double scale)
{
    QPainterPath path;
    for (const Point& point : mark.points)
        if (path.elementCount() == 0)
            path.moveTo(scaled(point, scale));
        else
            path.lineTo(scaled(point, scale));
    return path;
}

QPainterPath AnnotationInk::strokeInkPath(const Annotation& mark, double scale)
{
    if (mark.points.empty() || (mark.kind != Kind::pen && mark.kind != Kind::line))
        return {};
    if (mark.kind == Kind::pen)
        return freehandPath(mark, scale);
    const QPointF from = scaled(mark.points.front(), scale);
    const QPointF to = scaled(mark.points.back(), scale);
    if (!mark.curveControl)
        return straightLine(from, to, mark.lineWidth * scale);
    QPainterPath path(from);
    path.quadTo(scaled(*mark.curveControl, scale), to);
    return path;
}

std::vector<std::vector<Point>> AnnotationInk::pieces(const std::vector<Point>& points, double scale)
{
    std::vector<std::vector<Point>> all;
    std::vector<Point> piece;
    double length = 0;
    for (const Point& point : points) {
        if (piece.size() == mostPointsInPiece || length > longestPiece) {
            all.push_back(piece);
            piece = {piece.back()};
            length = 0;
        }
        if (!piece.empty())
            length += scale * std::hypot(point.x - piece.back().x, point.y - piece.back().y);
        piece.push_back(point);
    }
    all.push_back(piece);
    return all;
}

std::vector<QPainterPath> AnnotationInk::penInk(const Annotation& mark, double scale)
{
    std::vector<QPainterPath> paths;
    Annotation part = mark;
    for (auto& piece : pieces(mark.points, scale)) {
        part.points = std::move(piece);
        paths.push_back(inkPath(part, scale));
    }
    return paths;
}

QPainterPath AnnotationInk::shapePath(const Annotation& mark, double scale)
{
    const bool isUpright = mark.kind == Kind::rectangle && mark.rotation == 0;
    const QRectF box = scaled(mark.boundingRect(), scale);
    const QRectF rect = isUpright ? onPixels(box, mark.lineWidth * scale) : box;
    QPainterPath path;
    if (mark.kind == Kind::ellipse) {
        path.addEllipse(rect);
    } else if (const double radius = cornerRadius(mark, rect, scale); radius > 0) {
        path.addRoundedRect(rect, radius, radius);
    } else {
        path.addRect(rect);
    }
    return path;
}

QPen AnnotationInk::pen(const Annotation& mark, double scale)
{
    const bool isStroke = mark.kind == Kind::pen || mark.kind == Kind::line;
    const bool isSharp = mark.kind == Kind::rectangle && !mark.rounded;
    return {colorOf(mark), mark.lineWidth * scale, Qt::SolidLine, isStroke ? Qt::RoundCap : Qt::FlatCap,
            isSharp ? Qt::MiterJoin : Qt::RoundJoin};
}

double AnnotationInk::stepRadius(const Annotation& mark, double scale)
{
    return (mark.lineWidth * 2.4 + 3.4) * scale;
}

double AnnotationInk::stepRingWidth(const Annotation& mark, double scale)
{
    return std::max(1.5 * scale, 0.12 * stepRadius(mark, scale));
}

double AnnotationInk::chipRadius(const Annotation& mark, double scale)
{
    return mark.fontSize * (mark.textStyle == Annotation::TextStyle::bubble ? 0.55 : 0.3) * scale;
}

QPointF AnnotationInk::nearestPointOnRoundedRect(QPointF point, const QRectF& rect, double radius)
{
    radius = std::min({radius, rect.width() / 2, rect.height() / 2});
    const QRectF core = rect.adjusted(radius, radius, -radius, -radius);
    const QPointF onCore(std::clamp(point.x(), core.left(), core.right()),
                         std::clamp(point.y(), core.top(), core.bottom()));
    const QPointF away = point - onCore;
    const double distance = std::hypot(away.x(), away.y());
    if (distance > 0)
        return onCore + away * (radius / distance);
    // Inside the core: straight out through the nearest side.
    const double left = point.x() - rect.left();
    const double right = rect.right() - point.x();
    const double upper = point.y() - rect.top();
    const double lower = rect.bottom() - point.y();
    const double nearest = std::min({left, right, upper, lower});
    if (nearest == left)
        return {rect.left(), point.y()};
    if (nearest == right)
        return {rect.right(), point.y()};
    return {point.x(), nearest == upper ? rect.top() : rect.bottom()};
}

QPainterPath AnnotationInk::leaderInk(const QRectF& chip, QPointF tip, double fontSize, double cornerRadius)
{
    QPainterPath path;
    if (!(cornerRadius >= 0) || chip.contains(tip))
        return path;
    const TailFoot foot = footOf(chip, tip, fontSize, cornerRadius);
    // Both sides begin along the chip's edge, as a fillet, and bend towards the tip.
    const QPointF bend = 0.3 * foot.half;
    // It starts inside the chip, so that no gap shows beside its foot.
    const QPointF inwards = -std::min({0.38 * fontSize, chip.width() / 2, chip.height() / 2}) * foot.outwards;
    // In the direction in which QPainterPath goes around a rectangle: by the winding rule they are then one.
    path.moveTo(foot.middle - foot.half + inwards);
    path.lineTo(foot.middle - foot.half);
    path.quadTo(foot.middle - bend, tip);
    path.quadTo(foot.middle + bend, foot.middle + foot.half);
    path.lineTo(foot.middle + foot.half + inwards);
    path.closeSubpath();
    return path;
}

QPainterPath AnnotationInk::inkPath(const Annotation& mark, double scale, const MeasureInk::Reading& reading)
{
    switch (mark.kind) {
    case Kind::pen:
    case Kind::line:
        if (mark.points.size() == 1)
            return dotInk(mark, scale);
        return stroked(strokeInkPath(mark, scale), pen(mark, scale));
    case Kind::highlighter:
        return HighlighterInk::highlighterSweep(mark, HighlighterInk::tip(mark), scale);
    case Kind::arrow:
        return ArrowInk::arrowInkPath(mark.points.front(), mark.points.back(), mark.curveControl, mark.lineWidth, scale,
                                      mark.tipScale);
    case Kind::rectangle:
    case Kind::ellipse:
        return outlinedShape(mark, scale);
    case Kind::text:
        return labelInk(mark, scale);
    case Kind::step:
        return stepInk(mark, scale);
    case Kind::measure:
        return MeasureInk::inkPath(mark, scale, reading);
    case Kind::blur:
    case Kind::pixelate:
    case Kind::blackout:
    case Kind::spotlight:
    case Kind::image:
        return shapePath(mark, scale);
    }
    return {};
}

QTransform AnnotationInk::rotation(const Annotation& mark, double scale)
{
    if (!mark.isRotatable() || mark.rotation == 0)
        return {};
    const QPointF centre = scaled(mark.rotationRect().centre(), scale);
    return QTransform()
        .translate(centre.x(), centre.y())
        .rotateRadians(mark.rotation)
        .translate(-centre.x(), -centre.y());
}

bool AnnotationInk::edgeContains(const Annotation& mark, Point point, double tolerance)
{
    if (!isDrawable(mark, 1))
        return false;
    const QPointF upright = rotation(mark, 1).inverted().map(scaled(point, 1));
    const bool isStroked = mark.kind == Kind::rectangle || mark.kind == Kind::ellipse;
    const double width = 2 * tolerance + (isStroked ? mark.lineWidth : 0);
    const QPen wide(Qt::black, width, Qt::SolidLine, Qt::RoundCap, pen(mark, 1).joinStyle());
    return stroked(shapePath(mark, 1), wide).contains(upright);
}

bool AnnotationInk::contains(const Annotation& mark, Point point, double tolerance, const MeasureInk::Reading& reading)
{
    if (!isDrawable(mark, 1))
        return false;
    const QPointF upright = rotation(mark, 1).inverted().map(scaled(point, 1));
    const QPainterPath ink = AnnotationInk::inkPath(mark, 1, reading);
    if (ink.contains(upright))
        return true;
    return tolerance > 0 &&
           stroked(ink, QPen(Qt::black, 2 * tolerance, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin)).contains(upright);
}

} // namespace Kovrel
