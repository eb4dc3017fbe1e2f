#include "editor/geometry/MarkFrame.h"

#include "editor/marks/AnnotationExtent.h"
#include "editor/marks/AnnotationInk.h"

#include <QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>

namespace Kovrel {

namespace {

using Kind = Annotation::Kind;

constexpr double leastFontSize = 4;
constexpr double leastLineWidth = 0.5;

Rect rectOf(const QRectF& rect)
{
    return {rect.x(), rect.y(), rect.width(), rect.height()};
}

Rect spanned(std::span<const Point> points)
{
    const auto [left, right] = std::ranges::minmax(points, {}, &Point::x);
    const auto [lower, upper] = std::ranges::minmax(points, {}, &Point::y);
    return {left.x, lower.y, right.x - left.x, upper.y - lower.y};
}

template <class Move>
void moveAll(Annotation& mark, Move move)
{
    for (Point& point : mark.points)
        point = move(point);
    if (mark.curveControl)
        mark.curveControl = move(*mark.curveControl);
}

// From one rectangle into another; what has no length stays in the middle.
double mapped(double at, double from, double length, double to, double newLength)
{
    return length > 0 ? to + (at - from) / length * newLength : to + newLength / 2;
}

// What has a size of its own, not from its points.
void scaleSizes(Annotation& mark, double factor)
{
    if (mark.kind == Kind::text) {
        mark.fontSize = std::max(leastFontSize, mark.fontSize * factor);
        if (mark.wrapCap)
            *mark.wrapCap *= factor;
    }
}

// The inverse of AnnotationInk::stepRadius().
double stepWidthOf(double radius)
{
    return std::max(leastLineWidth, (radius - 3.4) / 2.4);
}

Annotation stretchedLabel(Annotation label, const Rect& to)
{
    const Rect from = label.textRect();
    const double factor = from.height > 0 ? to.height / from.height : 1;
    const Rect box = label.boundingRect();
    moveAll(label,
            [&](Point point) { return Point{box.x + (point.x - box.x) * factor, box.y + (point.y - box.y) * factor}; });
    scaleSizes(label, factor);
    const Rect now = label.textRect();
    return MarkFrame::translated(std::move(label), {to.minX() - now.minX(), to.maxY() - now.maxY()});
}

Annotation stretchedStep(Annotation step, const Rect& to)
{
    step.lineWidth = stepWidthOf(std::min(to.width, to.height) / 2);
    step.points = {to.centre()};
    return step;
}

} // namespace

Rect MarkFrame::frame(const Annotation& mark)
{
    switch (mark.kind) {
    case Kind::text:
        return mark.textRect();
    case Kind::step: {
        const double radius = AnnotationInk::stepRadius(mark, 1);
        const Point centre = mark.points.empty() ? Point() : mark.points.back();
        return {centre.x - radius, centre.y - radius, 2 * radius, 2 * radius};
    }
    case Kind::pen:
    case Kind::highlighter:
        return rectOf(AnnotationExtent::pointsBox(mark));
    default:
        return mark.boundingRect();
    }
}

Rect MarkFrame::bounds(const Annotation& mark)
{
    if (mark.curveControl && !mark.points.empty()) {
        QPainterPath curve(AnnotationInk::scaled(mark.points.front(), 1));
        curve.quadTo(AnnotationInk::scaled(*mark.curveControl, 1), AnnotationInk::scaled(mark.points.back(), 1));
        return rectOf(curve.boundingRect());
    }
    return spanned(std::array{place(mark, 0, 0), place(mark, 1, 0), place(mark, 0, 1), place(mark, 1, 1)});
}

Rect MarkFrame::bounds(std::span<const Annotation> marks)
{
    std::vector<Point> corners;
    for (const Annotation& mark : marks) {
        const Rect one = bounds(mark);
        corners.insert(corners.end(), {{one.minX(), one.minY()}, {one.maxX(), one.maxY()}});
    }
    return corners.empty() ? Rect() : spanned(corners);
}

Point MarkFrame::place(const Annotation& mark, double across, double up)
{
    const Rect rect = frame(mark);
    const Point upright{rect.x + across * rect.width, rect.y + up * rect.height};
    return mark.isRotatable() ? turned(upright, rect.centre(), mark.rotation) : upright;
}

Point MarkFrame::turned(Point point, Point centre, double radians)
{
    const double dx = point.x - centre.x;
    const double dy = point.y - centre.y;
    const double cosine = std::cos(radians);
    const double sine = std::sin(radians);
    return {centre.x + dx * cosine - dy * sine, centre.y + dx * sine + dy * cosine};
}

Annotation MarkFrame::translated(Annotation mark, Size by)
{
    moveAll(mark, [by](Point point) { return Point{point.x + by.width, point.y + by.height}; });
    return mark;
}

Annotation MarkFrame::turned(Annotation mark, Point centre, double radians)
{
    if (!mark.isRotatable()) {
        moveAll(mark, [=](Point point) { return turned(point, centre, radians); });
        return mark;
    }
    const Point from = frame(mark).centre();
    const Point to = turned(from, centre, radians);
    mark.rotation = std::remainder(mark.rotation + radians, 2 * std::numbers::pi);
    return translated(std::move(mark), {to.x - from.x, to.y - from.y});
}

Annotation MarkFrame::stretched(Annotation mark, const Rect& to)
{
    if (mark.kind == Kind::text)
        return stretchedLabel(std::move(mark), to);
    if (mark.kind == Kind::step)
        return stretchedStep(std::move(mark), to);
    const Rect from = frame(mark);
    moveAll(mark, [&](Point point) {
        return Point{mapped(point.x, from.x, from.width, to.x, to.width),
                     mapped(point.y, from.y, from.height, to.y, to.height)};
    });
    return mark;
}

Annotation MarkFrame::scaled(Annotation mark, Point centre, double factor)
{
    const Rect from = frame(mark);
    const Rect to{centre.x + (from.x - centre.x) * factor, centre.y + (from.y - centre.y) * factor, from.width * factor,
                  from.height * factor};
    return stretched(std::move(mark), to);
}

Annotation MarkFrame::withText(Annotation label, const QString& text)
{
    Annotation changed = label;
    changed.text = text;
    return keepingUpperLeft(label, std::move(changed));
}

Annotation MarkFrame::keepingUpperLeft(const Annotation& before, Annotation label)
{
    const Point was = place(before, 0, 1);
    const Point now = place(label, 0, 1);
    return translated(std::move(label), {was.x - now.x, was.y - now.y});
}

} // namespace Kovrel
