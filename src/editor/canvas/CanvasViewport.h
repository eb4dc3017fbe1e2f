#pragma once

#include "model/Geometry.h"

#include <QPointF>
#include <QRect>
#include <QSize>

namespace Kovrel {

// Which part of a canvas a view shows, and how large. Places of the view are device pixels, origin upper left, those of
// the canvas pixels of the capture, y down from its upper left corner; image points have y up from the lower left one.
class CanvasViewport {
public:
    static constexpr double smallest = 0.05;
    static constexpr double largest = 32;

    // Of the capture: its height in pixels, and how many there are to an image point.
    CanvasViewport(int captureHeight, double captureScale)
        : m_captureHeight(captureHeight), m_captureScale(captureScale)
    {
    }

    // Device pixels of the view; device pixels to a point of the screen. What is in its middle stays there.
    void setView(QSize view, double devicePixelRatio);
    // What can be shown, backdrop included; the capture's pixels.
    void setCanvas(const QRect& canvas);

    // Device pixels of the view to a pixel of the capture.
    double zoom() const { return m_zoom; }

    bool isFitted() const { return m_isFitted; }

    // All of the canvas, with some room around it, and never larger than it is. It stays so until somebody zooms.
    void fit();
    // `about`, a place of the view, stays where it is.
    void zoomTo(double zoom, QPointF about);
    void pan(QPointF by);
    // Brings what is not in sight into the middle; image points.
    void reveal(const Rect& place);

    QPointF toView(QPointF canvasPixel) const;
    QPointF toCanvas(QPointF viewPixel) const;
    QRectF toView(const QRectF& canvasPixels) const;
    Point toImage(QPointF viewPixel) const;
    QPointF fromImage(Point imagePoint) const;

    // Image points to a point of the screen.
    double imagePointsPerScreenPoint() const { return m_devicePixelRatio / (m_zoom * m_captureScale); }

private:
    void keepInSight();

    int m_captureHeight;
    double m_captureScale;
    QSize m_view{1, 1};
    double m_devicePixelRatio = 1;
    QRect m_canvas{0, 0, 1, 1};
    double m_zoom = 1;
    QPointF m_offset; // of the canvas' 0,0 in the view: whole pixels
    bool m_isFitted = true;
};

} // namespace Kovrel
