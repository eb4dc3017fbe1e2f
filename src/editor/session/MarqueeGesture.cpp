#include "editor/session/MarqueeGesture.h"

#include "editor/geometry/MarkHit.h"

#include <cmath>

namespace Kovrel {

MarqueeGesture::MarqueeGesture(const EditorDocument& start, std::vector<QUuid> before, Point from)
    : m_start(start), m_before(std::move(before)), m_selection(m_before), m_from(from)
{
}

EditorDocument MarqueeGesture::moved(const CanvasPointer& pointer)
{
    m_marquee = {std::min(m_from.x, pointer.at.x), std::min(m_from.y, pointer.at.y), std::abs(pointer.at.x - m_from.x),
                 std::abs(pointer.at.y - m_from.y)};
    m_selection = m_before;
    for (const size_t index : MarkHit::touching(m_start.marks, m_marquee))
        m_selection.push_back(m_start.marks[index].id);
    return m_start;
}

} // namespace Kovrel
