#include "editor/session/MeasureGesture.h"

#include <cmath>

namespace Kovrel {

namespace {

using Axis = CaptureEdges::Axis;

constexpr double nearlyStraight = 0.18; // ten degrees

std::optional<Axis> axisOf(Size size)
{
    const double across = std::abs(size.width);
    const double up = std::abs(size.height);
    if (up <= nearlyStraight * across)
        return Axis::horizontal;
    if (across <= nearlyStraight * up)
        return Axis::vertical;
    return std::nullopt;
}

} // namespace

MeasureGesture::MeasureGesture(std::unique_ptr<EditorGesture> drawing, Measure measure,
                               std::optional<EditorDocument> onClick)
    : m_drawing(std::move(drawing)), m_measure(std::move(measure)), m_onClick(std::move(onClick))
{
}

EditorDocument MeasureGesture::moved(const CanvasPointer& pointer)
{
    EditorDocument next = m_drawing->moved(pointer);
    if (Annotation* const mark = next.mark(m_measure.mark); mark && !pointer.alt && pointer.snapReach() > 0)
        bringToEdges(mark->points, pointer.snapReach());
    return next;
}

void MeasureGesture::bringToEdges(std::vector<Point>& ends, double reach) const
{
    const bool dragsStart = m_measure.drags == Drags::start;
    const Point fixed = dragsStart ? ends.back() : ends.front();
    Point& dragged = dragsStart ? ends.front() : ends.back();
    const auto axis = axisOf({dragged.x - fixed.x, dragged.y - fixed.y});
    if (!axis)
        return;
    (*axis == Axis::horizontal ? dragged.y : dragged.x) = *axis == Axis::horizontal ? fixed.y : fixed.x;
    dragged = m_measure.edges->nearest(dragged, *axis, reach);
    if (m_measure.drags == Drags::both)
        ends.front() = m_measure.edges->nearest(fixed, *axis, reach);
}

} // namespace Kovrel
