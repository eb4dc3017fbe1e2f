#include "editor/canvas/CanvasViewport.h"

#include <algorithm>
#include <cmath>

namespace Kovrel {

namespace {

constexpr double room = 24; // points of the screen around a canvas that is fitted

QPointF rounded(QPointF point)
{
    return {std::round(point.x()), std::round(point.y())};
}

// A canvas that is smaller than the view lies in its middle; of a larger one, no ground shows beyond its room.
double kept(double offset, double low, double high, double view, double space)
{
    if (high - low + 2 * space <= view)
        return (view - (high - low)) / 2 - low;
    return std::clamp(offset, view - space - high, space - low);
}

} // namespace

void CanvasViewport::setView(QSize view, double devicePixelRatio)
{
    const QPointF middle = toCanvas(QPointF(m_view.width(), m_view.height()) / 2);
    m_view = view;
    m_devicePixelRatio = devicePixelRatio;
    if (m_isFitted)
        return fit();
    m_offset = QPointF(view.width(), view.height()) / 2 - middle * m_zoom;
    keepInSight();
}

void CanvasViewport::setCanvas(const QRect& canvas)
{
    if (canvas == m_canvas)
        return;
    m_canvas = canvas;
    m_isFitted ? fit() : keepInSight();
}

void CanvasViewport::fit()
{
    const double space = 2 * room * m_devicePixelRatio;
    const double across = (m_view.width() - space) / m_canvas.width();
    const double down = (m_view.height() - space) / m_canvas.height();
    // At their own size captures have the scale of the screen that they are on.
    const double own = m_devicePixelRatio / m_captureScale;
    m_zoom = std::clamp(std::min({across, down, own}), smallest, largest);
    m_isFitted = true;
    keepInSight();
}

void CanvasViewport::zoomTo(double zoom, QPointF about)
{
    const QPointF place = toCanvas(about);
    m_zoom = std::clamp(zoom, smallest, largest);
    m_offset = about - place * m_zoom;
    m_isFitted = false;
    keepInSight();
}

void CanvasViewport::pan(QPointF by)
{
    m_offset += by;
    m_isFitted = false;
    keepInSight();
}

void CanvasViewport::keepInSight()
{
    const double space = room * m_devicePixelRatio;
    const QRectF canvas(QPointF(m_canvas.topLeft()) * m_zoom, QSizeF(m_canvas.size()) * m_zoom);
    m_offset = rounded({kept(m_offset.x(), canvas.left(), canvas.right(), m_view.width(), space),
                        kept(m_offset.y(), canvas.top(), canvas.bottom(), m_view.height(), space)});
}

void CanvasViewport::reveal(const Rect& place)
{
    const QRectF rect(fromImage({place.minX(), place.maxY()}), fromImage({place.maxX(), place.minY()}));
    const QRectF view({}, QSizeF(m_view));
    if (!view.contains(rect))
        pan(view.center() - rect.center());
}

QPointF CanvasViewport::toView(QPointF canvasPixel) const
{
    return m_offset + canvasPixel * m_zoom;
}

QPointF CanvasViewport::toCanvas(QPointF viewPixel) const
{
    return (viewPixel - m_offset) / m_zoom;
}

QRectF CanvasViewport::toView(const QRectF& canvasPixels) const
{
    return {toView(canvasPixels.topLeft()), canvasPixels.size() * m_zoom};
}

Point CanvasViewport::toImage(QPointF viewPixel) const
{
    const QPointF pixel = toCanvas(viewPixel);
    return {pixel.x() / m_captureScale, (m_captureHeight - pixel.y()) / m_captureScale};
}

QPointF CanvasViewport::fromImage(Point imagePoint) const
{
    return toView(QPointF(imagePoint.x * m_captureScale, m_captureHeight - imagePoint.y * m_captureScale));
}

} // namespace Kovrel
