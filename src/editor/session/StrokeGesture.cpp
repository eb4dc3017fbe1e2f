#include "editor/session/StrokeGesture.h"

#include <cmath>

namespace Kovrel {

StrokeGesture::StrokeGesture(const EditorDocument& start, Annotation mark, Point from)
    : m_start(start), m_mark(std::move(mark))
{
    m_mark.points = {from};
}

EditorDocument StrokeGesture::moved(const CanvasPointer& pointer)
{
    if (pointer.shift)
        return withStroke({m_mark.points.front(), pointer.at});
    // Half a pixel is not seen, and a stroke of a minute would have a hundred thousand points.
    const Point last = m_mark.points.back();
    if (std::hypot(pointer.at.x - last.x, pointer.at.y - last.y) >= 0.5 * pointer.pixel)
        m_mark.points.push_back(pointer.at);
    return withStroke(m_mark.points);
}

EditorDocument StrokeGesture::withStroke(std::vector<Point> points) const
{
    EditorDocument next = m_start;
    next.marks.push_back(m_mark);
    next.marks.back().points = std::move(points);
    return next;
}

} // namespace Kovrel
