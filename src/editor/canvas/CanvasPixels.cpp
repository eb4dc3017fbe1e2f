#include "editor/canvas/CanvasPixels.h"

#include <QPainter>

namespace Kovrel {

namespace {

// An area that grows by a step is likely to grow on. Memory that nothing is drawn into costs nothing.
QRect withRoom(const QRect& area)
{
    const int across = area.width() / 16;
    const int down = area.height() / 16;
    return area.adjusted(-across, -down, across, down);
}

} // namespace

void CanvasPixels::setArea(const QRect& area, bool isOpaque)
{
    m_drawn &= area;
    m_area = area;
    const QImage::Format format = isOpaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied;
    const QRect held(m_corner, m_image.size());
    if (held.contains(area) && m_image.format() == format)
        return;
    const QRect room = m_image.isNull() ? area : held.contains(area) ? held : withRoom(area);
    QImage next(room.size(), format);
    QPainter painter(&next);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (const QRect& rect : m_drawn)
        painter.drawImage(rect.topLeft() - room.topLeft(), m_image, rect.translated(-m_corner));
    painter.end();
    m_image = std::move(next);
    m_corner = room.topLeft();
}

void CanvasPixels::share(const QImage& picture)
{
    m_image = picture;
    m_corner = {};
    m_area = picture.rect();
    m_drawn = m_area;
}

} // namespace Kovrel
