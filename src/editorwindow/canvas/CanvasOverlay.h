#pragma once

#include "editor/canvas/CanvasViewport.h"
#include "editor/geometry/Snapping.h"
#include "editor/marks/Annotation.h"

#include <QLineF>
#include <QPainter>
#include <QPainterPath>
#include <QRegion>

#include <optional>
#include <span>

namespace Kovrel {

// What lies over a canvas and is not exported: handles, guides, the crop, the caret. The painter's units are device
// pixels of the view; `ratio` is how many there are to a point of the screen. Without a painter nothing is drawn, but
// it is known where it would be. Main thread.
class CanvasOverlay {
public:
    CanvasOverlay(QPainter* painter, const CanvasViewport& viewport, double ratio)
        : m_painter(painter), m_viewport(viewport), m_ratio(ratio)
    {
    }

    // Where it was drawn, but for what only comes and goes with the whole view: the grid and the ground of a crop.
    const QRegion& area() const { return m_area; }

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
    void drawLine(QPointF from, QPointF to, const QPen& pen);
    void strokeTwice(const QPolygonF& outline, bool isDashed);
    void lay(const QPainterPath& path, const QPen& pen, const QBrush& brush = Qt::NoBrush);

    QPainter* m_painter; // null: only the area is wanted
    const CanvasViewport& m_viewport;
    double m_ratio;
    QRegion m_area;
};

} // namespace Kovrel
