#pragma once

#include <QImage>
#include <QRegion>

namespace Kovrel {

// Pixels of a canvas that are drawn when they are needed, and kept while the canvas becomes larger or smaller around
// them. Places are the canvas' own, y down; its upper left corner may lie anywhere. One thread.
class CanvasPixels {
public:
    // What is drawn of it stays. Opaque pixels are copied in half the time.
    void setArea(const QRect& area, bool isOpaque);

    // All of the canvas are the pixels of a picture, copied when one of them changes. Of one of the formats of image().
    void share(const QImage& picture);

    void forget(const QRegion& region) { m_drawn -= region; }

    void forgetAll() { m_drawn = {}; }

    // What of a region is not drawn; whoever draws it says so.
    QRegion missing(const QRegion& region) const { return (region & m_area) - m_drawn; }

    void setDrawn(const QRegion& region) { m_drawn += region & m_area; }

    bool isEmpty() const { return m_drawn.isEmpty(); }

    // Format_RGB32 where all of it is opaque, else Format_ARGB32_Premultiplied; of the area and perhaps more; undefined
    // where nothing is drawn. Null only when memory is short or there is no area.
    QImage& image() { return m_image; }

    const QImage& image() const { return m_image; }

    // The place of the image's upper left pixel.
    QPoint corner() const { return m_corner; }

    const QRect& area() const { return m_area; }

    bool isOpaque() const { return m_image.format() == QImage::Format_RGB32; }

    // Format_ARGB32_Premultiplied.
    QImage ofArea() const
    {
        return m_image.copy(m_area.translated(-m_corner)).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    }

private:
    QImage m_image;
    QPoint m_corner;
    QRect m_area;
    QRegion m_drawn;
};

} // namespace Kovrel
