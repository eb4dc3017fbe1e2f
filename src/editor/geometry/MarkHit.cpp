#include "editor/geometry/MarkHit.h"

#include "editor/geometry/MarkFrame.h"
#include "editor/marks/AnnotationExtent.h"
#include "editor/marks/AnnotationInk.h"

#include <algorithm>
#include <numeric>
#include <ranges>

namespace Kovrel {

namespace {

using Kind = Annotation::Kind;

// What is drawn on the capture itself lies below all others.
int layerOf(Kind kind)
{
    switch (kind) {
    case Kind::blur:
    case Kind::pixelate:
        return 0;
    case Kind::blackout:
        return 1;
    case Kind::highlighter:
        return 2;
    case Kind::spotlight:
        return 3;
    default:
        return 4;
    }
}

// Nothing is seen of it there but its edge.
bool isHollow(const Annotation& mark)
{
    const bool isShape = mark.kind == Kind::rectangle || mark.kind == Kind::ellipse;
    return mark.kind == Kind::spotlight || (isShape && mark.fillStyle == Annotation::FillStyle::outline);
}

// How near is told in quarters: the eye sees no more.
std::optional<size_t> nearest(std::span<const Annotation> marks, std::span<const size_t> above, Point point,
                              double tolerance, const MeasureInk::Reading& reading)
{
    for (const double share : {0.25, 0.5, 0.75, 1.0})
        for (const size_t index : above)
            if (MarkHit::isOnInk(marks[index], point, share * tolerance, reading))
                return index;
    return std::nullopt;
}

bool isNear(const Annotation& mark, Point point, double tolerance)
{
    const QRectF bound = AnnotationExtent::cullBound(mark, 1).adjusted(-tolerance, -tolerance, tolerance, tolerance);
    return bound.contains(point.x, point.y);
}

double areaOf(const Annotation& mark)
{
    const Rect frame = MarkFrame::frame(mark);
    return frame.width * frame.height;
}

} // namespace

std::vector<size_t> MarkHit::drawingOrder(std::span<const Annotation> marks)
{
    std::vector<size_t> order(marks.size());
    std::iota(order.begin(), order.end(), 0);
    std::ranges::sort(order, {}, [marks](size_t index) { return std::pair(layerOf(marks[index].kind), index); });
    return order;
}

std::optional<size_t> MarkHit::topmost(std::span<const Annotation> marks, Point point, double tolerance,
                                       const MeasureInk::Reading& reading)
{
    std::vector<size_t> candidates;
    for (const size_t index : drawingOrder(marks) | std::views::reverse)
        if (isNear(marks[index], point, tolerance))
            candidates.push_back(index);
    const auto exact =
        std::ranges::find_if(candidates, [&](size_t index) { return isOnInk(marks[index], point, 0, reading); });
    if (const auto near = nearest(marks, {candidates.begin(), exact}, point, tolerance, reading))
        return near;
    if (exact != candidates.end())
        return *exact;
    std::erase_if(candidates, [&](size_t index) { return !AnnotationInk::contains(marks[index], point, 0, reading); });
    const auto smallest = std::ranges::min_element(candidates, {}, [&](size_t index) { return areaOf(marks[index]); });
    return smallest == candidates.end() ? std::nullopt : std::optional(*smallest);
}

bool MarkHit::isOnInk(const Annotation& mark, Point point, double tolerance, const MeasureInk::Reading& reading)
{
    return isHollow(mark) ? AnnotationInk::edgeContains(mark, point, tolerance)
                          : AnnotationInk::contains(mark, point, tolerance, reading);
}

std::vector<size_t> MarkHit::touching(std::span<const Annotation> marks, const Rect& area)
{
    std::vector<size_t> found;
    for (size_t index = 0; index < marks.size(); ++index) {
        const Rect bounds = MarkFrame::bounds(marks[index]);
        if (bounds.minX() <= area.maxX() && area.minX() <= bounds.maxX() && bounds.minY() <= area.maxY() &&
            area.minY() <= bounds.maxY())
            found.push_back(index);
    }
    return found;
}

} // namespace Kovrel
