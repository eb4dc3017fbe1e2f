#include "editor/session/MoveGesture.h"

#include "editor/geometry/MarkFrame.h"
#include "editor/session/SnapTargets.h"

#include <cmath>

namespace Kovrel {

namespace {

std::vector<Annotation> marksOf(const EditorDocument& document, const std::vector<QUuid>& ids)
{
    std::vector<Annotation> marks;
    for (const QUuid id : ids)
        if (const Annotation* const mark = document.mark(id))
            marks.push_back(*mark);
    return marks;
}

} // namespace

MoveGesture::MoveGesture(const EditorDocument& start, std::vector<QUuid> ids, Point from, const Rect& canvas)
    : m_start(start),
      m_ids(std::move(ids)),
      m_from(from),
      m_bounds(MarkFrame::bounds(marksOf(start, m_ids))),
      m_canvas(canvas),
      m_others(SnapTargets::of(start.marks, m_ids))
{
    for (size_t count = 0; count < m_ids.size(); ++count)
        m_copies.push_back(QUuid::createUuid());
}

Size MoveGesture::shiftTo(const CanvasPointer& pointer)
{
    Size shift{pointer.at.x - m_from.x, pointer.at.y - m_from.y};
    if (pointer.shift)
        (std::abs(shift.width) < std::abs(shift.height) ? shift.width : shift.height) = 0;
    const Rect there{m_bounds.x + shift.width, m_bounds.y + shift.height, m_bounds.width, m_bounds.height};
    const auto snapped = Snapping::moved(there, m_others, m_canvas, pointer.snapReach());
    m_guides = snapped.guides;
    return {shift.width + snapped.shift.width, shift.height + snapped.shift.height};
}

EditorDocument MoveGesture::moved(const CanvasPointer& pointer)
{
    const Size shift = shiftTo(pointer);
    m_isCopying = pointer.alt;
    EditorDocument next = m_start;
    for (size_t index = 0; index < m_ids.size(); ++index) {
        Annotation* const mark = next.mark(m_ids[index]);
        Annotation there = MarkFrame::translated(*mark, shift);
        if (!m_isCopying) {
            *mark = std::move(there);
            continue;
        }
        there.id = m_copies[index];
        next.marks.push_back(std::move(there));
    }
    return next;
}

std::optional<std::vector<QUuid>> MoveGesture::selection() const
{
    return m_isCopying ? m_copies : m_ids;
}

} // namespace Kovrel
