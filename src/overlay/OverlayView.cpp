#include "overlay/OverlayView.h"

#include <algorithm>

namespace Kovrel {

namespace {

using Decorations = std::vector<OverlayDecoration>;

// What the first has and the second has not.
QRegion regionWithout(const Decorations& first, const Decorations& second)
{
    QRegion region;
    for (const auto& decoration : first)
        if (std::ranges::find(second, decoration) == second.end())
            region += decoration.region();
    return region;
}

qint64 areaOf(const QRect& rect)
{
    return qint64(rect.width()) * rect.height();
}

// The region in few rectangles: each costs a drawing of every decoration in it, so that some pixels painted in vain
// are cheaper than one more rectangle.
std::vector<QRect> fewRects(const QRegion& region)
{
    constexpr qint64 pixelsInVain = 8000;
    std::vector<QRect> rects;
    for (QRect rect : region) {
        const auto joins = [&](const QRect& other) {
            return areaOf(rect | other) <= areaOf(rect) + areaOf(other) + pixelsInVain;
        };
        for (auto other = std::ranges::find_if(rects, joins); other != rects.end();
             other = std::ranges::find_if(rects, joins)) {
            rect |= *other;
            rects.erase(other);
        }
        rects.push_back(rect);
    }
    return rects;
}

} // namespace

OverlayView::OverlayView(OverlaySurfaces& surfaces, Display display, Backing backing)
    : m_surfaces(surfaces), m_display(std::move(display)), m_backing(std::move(backing))
{
}

// Big areas without decorations are the surface's to paint; where decorations are, or were, all is composed here and
// put at once, so that nothing flickers.
void OverlayView::show(OverlayScene scene)
{
    const QRegion ground = m_scene.lit ^ scene.lit;
    QRegion composed =
        regionWithout(m_scene.decorations, scene.decorations) + regionWithout(scene.decorations, m_scene.decorations);
    for (const auto& decoration : scene.decorations)
        composed += decoration.region() & ground;
    const std::vector<QRect> rects = fewRects(composed & m_display.pixelRect);
    composed = {};
    for (const QRect& rect : rects)
        composed += rect;
    m_scene = std::move(scene);
    for (const QRect& rect : (ground & m_scene.lit) - composed)
        m_surfaces.reveal(rect);
    for (const QRect& rect : ground - m_scene.lit - composed)
        m_surfaces.shade(rect);
    for (const QRect& rect : rects)
        m_surfaces.put(rect.topLeft(), compose(rect));
}

void OverlayView::repaint(const QRect& rootPixels)
{
    const QRect part = rootPixels & m_display.pixelRect;
    if (!part.isEmpty())
        m_surfaces.put(part.topLeft(), compose(part));
}

QImage OverlayView::compose(const QRect& rootPixels)
{
    const bool isFrozen = m_backing.ground == OverlaySurfaces::Ground::frozen;
    QImage image(rootPixels.size(), isFrozen ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.translate(-rootPixels.topLeft());
    if (isFrozen)
        painter.drawImage(rootPixels.topLeft(), m_backing.screen,
                          rootPixels.translated(-m_display.pixelRect.topLeft()));
    for (const QRect& rect : QRegion(rootPixels) - m_scene.lit)
        painter.fillRect(rect, m_backing.shade);
    for (const auto& decoration : m_scene.decorations)
        if (decoration.region().intersects(rootPixels))
            m_painter.draw(painter, decoration, m_backing.screen, m_display.pixelRect);
    return image;
}

} // namespace Kovrel
