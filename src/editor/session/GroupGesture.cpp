#include "editor/session/GroupGesture.h"

#include "editor/geometry/MarkFrame.h"

namespace Kovrel {

GroupGesture::GroupGesture(const EditorDocument& start, std::vector<QUuid> ids, MarkHandle corner, Size held)
    : m_start(start), m_ids(std::move(ids)), m_corner(corner), m_held(held)
{
    std::vector<Annotation> marks;
    marks.reserve(m_ids.size());
    for (const QUuid id : m_ids)
        marks.push_back(*m_start.mark(id));
    m_bounds = MarkFrame::bounds(marks);
}

EditorDocument GroupGesture::moved(const CanvasPointer& pointer)
{
    const Point to{pointer.at.x + m_held.width, pointer.at.y + m_held.height};
    const auto stretch = MarkHandles::groupStretch(m_bounds, m_corner, to, pointer.alt);
    EditorDocument next = m_start;
    for (const QUuid id : m_ids) {
        Annotation& mark = *next.mark(id);
        mark = MarkFrame::scaled(std::move(mark), stretch.centre, stretch.factor);
    }
    return next;
}

} // namespace Kovrel
