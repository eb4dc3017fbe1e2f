#pragma once

#include "editor/canvas/CanvasViewport.h"
#include "editor/geometry/Snapping.h"
#include "editor/marks/Annotation.h"

#include <QLineF>
#include <QPainter>

#include <optional>
#include <span>

namespace Kovrel {

// What lies over a canvas and is not exported: handles, guides, the crop, the caret. The painter's units are device
// pixels of the view; `ratio` is how many there are to a point of the screen. Main thread.
class CanvasOverlay {
public:
    CanvasOverlay(QPainter& painter, const CanvasViewport& viewport, double ratio)
        : m_painter(painter), m_viewport(viewport), m_ratio(ratio)
    {
    }

    // Places and lengths of the canvas are image points, y up.
    void drawSelection(std::span<const Annotation> marks);
    void drawHovered(const Annotation& mark);
    void drawGuides(std::span<const Snapping::Guide> guides);
    void drawMarquee(const Rect& marquee);
    // What a crop leaves out.
    void hideOutside(const Rect& crop, const QColor& ground);
    void drawCrop(const Rect& crop, const Rect& canvas, bool isDragged);
    void drawWriting(const Annotation& label, const QLineF& caret, std::span<const QRectF> selection,
                     bool isCaretShown);
    // Text that was found; `now`: what of it is looked at.
    void drawFound(std::span<const Rect> boxes, std::span<const Rect> now);
    // Between the pixels of the capture, where they are large.
    void drawPixelGrid(const QRectF& canvas);

private:
    double points(double length) const { return length * m_ratio; }

    QRectF inView(const Rect& rect) const;
    QPolygonF frame(const Annotation& mark) const;
    void drawHandle(Point at, bool isRound);
    void strokeTwice(const QPolygonF& outline, bool isDashed);

    QPainter& m_painter;
    const CanvasViewport& m_viewport;
    double m_ratio;
};

} // namespace Kovrel
