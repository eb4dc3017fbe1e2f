#include "editor/session/DrawGesture.h"

#include "editor/geometry/MarkHandles.h"
#include "editor/session/SnapTargets.h"

#include <cmath>
#include <numbers>

namespace Kovrel {

namespace {

using Kind = Annotation::Kind;

bool isSegment(Kind kind)
{
    return kind == Kind::arrow || kind == Kind::line || kind == Kind::measure;
}

// The corner of a square.
Point even(Point from, Point to)
{
    const double side = std::max(std::abs(to.x - from.x), std::abs(to.y - from.y));
    return {from.x + std::copysign(side, to.x - from.x), from.y + std::copysign(side, to.y - from.y)};
}

Point constrained(Kind kind, Point from, Point to)
{
    return isSegment(kind) ? MarkHandles::atWholeAngle(from, to, std::numbers::pi / 4) : even(from, to);
}

} // namespace

DrawGesture::DrawGesture(const EditorDocument& start, Annotation mark, Point from, const Rect& canvas)
    : m_start(start),
      m_mark(std::move(mark)),
      m_from(from),
      m_canvas(canvas),
      m_others(SnapTargets::of(start.marks, {}))
{
}

Point DrawGesture::snapped(Point at, const CanvasPointer& pointer)
{
    const auto snapped = Snapping::dragged(at, true, true, m_others, m_canvas, pointer.snapReach());
    m_guides = snapped.guides;
    return {at.x + snapped.shift.width, at.y + snapped.shift.height};
}

EditorDocument DrawGesture::moved(const CanvasPointer& pointer)
{
    m_guides.clear();
    const Point to = pointer.shift ? constrained(m_mark.kind, m_from, pointer.at) : snapped(pointer.at, pointer);
    const Point from = pointer.alt ? Point{2 * m_from.x - to.x, 2 * m_from.y - to.y} : m_from;
    EditorDocument next = m_start;
    next.marks.push_back(m_mark);
    next.marks.back().points = {from, to};
    return next;
}

} // namespace Kovrel
