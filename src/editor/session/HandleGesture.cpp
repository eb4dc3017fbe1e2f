#include "editor/session/HandleGesture.h"

#include "editor/session/SnapTargets.h"

namespace Kovrel {

HandleGesture::HandleGesture(const EditorDocument& start, QUuid id, MarkHandle handle, Size held, const Rect& canvas)
    : m_start(start),
      m_id(id),
      m_handle(handle),
      m_held(held),
      m_canvas(canvas),
      m_others(SnapTargets::of(start.marks, {&m_id, 1}))
{
}

// What is turned has sides that guides do not have.
Point HandleGesture::snapped(const CanvasPointer& pointer)
{
    const Point at{pointer.at.x + m_held.width, pointer.at.y + m_held.height};
    m_guides.clear();
    const bool isEnd = m_handle == MarkHandle::start || m_handle == MarkHandle::end;
    const Point direction = isEnd ? Point{1, 1} : MarkHandles::direction(m_handle);
    if (pointer.shift || m_start.mark(m_id)->rotation != 0)
        return at;
    const auto snapped =
        Snapping::dragged(at, direction.x != 0, direction.y != 0, m_others, m_canvas, pointer.snapReach());
    m_guides = snapped.guides;
    return {at.x + snapped.shift.width, at.y + snapped.shift.height};
}

EditorDocument HandleGesture::moved(const CanvasPointer& pointer)
{
    EditorDocument next = m_start;
    Annotation& mark = *next.mark(m_id);
    mark = MarkHandles::dragged(mark, m_handle, snapped(pointer),
                                {.keepsShape = pointer.shift, .fromCentre = pointer.alt, .tolerance = pointer.reach()});
    return next;
}

} // namespace Kovrel
