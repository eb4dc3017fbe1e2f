#include "editor/canvas/CanvasPixels.h"

#include <QPainter>

namespace Kovrel {

namespace {

// An area that grows by a step is likely to grow on. Memory that nothing is drawn into costs nothing.
QRect withRoom(const QRect& area)
{
    const int across = area.width() / 8;
    const int down = area.height() / 8;
    return area.adjusted(-across, -down, across, down);
}

} // namespace

void CanvasPixels::setArea(const QRect& area)
{
    m_drawn &= area;
    m_area = area;
    if (QRect(m_corner, m_image.size()).contains(area))
        return;
    const QRect room = m_image.isNull() ? area : withRoom(area);
    QImage larger(room.size(), QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&larger);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (const QRect& rect : m_drawn)
        painter.drawImage(rect.topLeft() - room.topLeft(), m_image, rect.translated(-m_corner));
    painter.end();
    m_image = std::move(larger);
    m_corner = room.topLeft();
}

} // namespace Kovrel
