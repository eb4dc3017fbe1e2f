#include "editor/marks/AnnotationTurn.h"

#include <cmath>
#include <numbers>

namespace Kovrel {

namespace {

// Both have a body of their own that no drag has spanned.
bool turnsAsAWhole(const Annotation& mark)
{
    return mark.kind == Annotation::Kind::text || mark.kind == Annotation::Kind::image;
}

void moveBy(Annotation& mark, double x, double y)
{
    for (Point& point : mark.points)
        point = {point.x + x, point.y + y};
}

Annotation turnedAsAWhole(Annotation mark, Size capture, QuarterTurn turn)
{
    const Point before = mark.rotationRect().centre();
    const Point after = AnnotationTurn::turned(before, capture, turn);
    moveBy(mark, after.x - before.x, after.y - before.y);
    const double angle = std::numbers::pi / 2 * (turn == QuarterTurn::left ? 1 : -1);
    mark.rotation = std::remainder(mark.rotation + angle, 2 * std::numbers::pi);
    return mark;
}

} // namespace

Point AnnotationTurn::turned(Point point, Size capture, QuarterTurn turn)
{
    return turn == QuarterTurn::left ? Point{capture.height - point.y, point.x}
                                     : Point{point.y, capture.width - point.x};
}

Annotation AnnotationTurn::turned(Annotation mark, Size capture, QuarterTurn turn)
{
    if (turnsAsAWhole(mark))
        return turnedAsAWhole(std::move(mark), capture, turn);
    for (Point& point : mark.points)
        point = turned(point, capture, turn);
    if (mark.curveControl)
        mark.curveControl = turned(*mark.curveControl, capture, turn);
    return mark;
}

} // namespace Kovrel
