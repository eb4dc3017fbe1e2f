#include "capture/selection/AreaSelection.h"

#include "capture/selection/SelectionGeometry.h"

#include <algorithm>
#include <utility>

namespace Kovrel {

AreaSelection::AreaSelection(DisplayList displays)
    : m_displays(std::move(displays)), m_desktop(SelectionGeometry::desktopRect(m_displays))
{
}

void AreaSelection::press(QPoint pointer)
{
    m_isDragging = true;
    m_isMoving = false;
    m_pointer = SelectionGeometry::cornerAt(pointer, m_displays);
    m_anchor = m_pointer;
    m_corner = m_pointer;
}

void AreaSelection::drag(QPoint pointer, bool isSquare)
{
    if (!m_isDragging)
        return;
    const QPoint corner = SelectionGeometry::cornerAt(pointer, m_displays);
    if (m_isMoving)
        moveBy(corner + m_grip - rect()->topLeft());
    else
        m_corner = isSquare ? SelectionGeometry::squareCorner(*m_anchor, corner, m_desktop) : corner;
    m_pointer = corner;
}

void AreaSelection::release()
{
    m_isDragging = false;
    m_isMoving = false;
}

void AreaSelection::beginMoving()
{
    if (!m_isDragging || std::exchange(m_isMoving, true))
        return;
    m_grip = rect()->topLeft() - m_pointer;
}

void AreaSelection::endMoving()
{
    m_isMoving = false;
}

void AreaSelection::extend(QPoint pointer, QPoint step)
{
    if (!m_anchor) {
        m_anchor = SelectionGeometry::cornerAt(pointer, m_displays);
        m_corner = *m_anchor;
    }
    m_corner = within(m_corner + step);
}

void AreaSelection::moveBy(QPoint step)
{
    const auto selected = rect();
    if (!selected)
        return;
    const QRect room(m_desktop.topLeft(), m_desktop.size() - selected->size());
    const QPoint wanted = selected->topLeft() + step;
    const QPoint allowed(std::clamp(wanted.x(), room.x(), room.x() + room.width()),
                         std::clamp(wanted.y(), room.y(), room.y() + room.height()));
    const QPoint moved = allowed - selected->topLeft();
    *m_anchor += moved;
    m_corner += moved;
}

std::optional<QRect> AreaSelection::rect() const
{
    return m_anchor ? std::optional(SelectionGeometry::between(*m_anchor, m_corner)) : std::nullopt;
}

QPoint AreaSelection::cornerPixel() const
{
    return {std::min(m_corner.x(), m_desktop.right()), std::min(m_corner.y(), m_desktop.bottom())};
}

QPoint AreaSelection::within(QPoint corner) const
{
    return {std::clamp(corner.x(), m_desktop.x(), m_desktop.x() + m_desktop.width()),
            std::clamp(corner.y(), m_desktop.y(), m_desktop.y() + m_desktop.height())};
}

} // namespace Kovrel
