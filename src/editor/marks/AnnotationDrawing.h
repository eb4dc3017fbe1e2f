#pragma once

#include "editor/marks/Annotation.h"
#include "editor/marks/MeasureInk.h"

#include <QImage>
#include <QPainterPath>
#include <QRectF>

#include <span>

class QPainter;

namespace Kovrel {

class MarkSprites;

// Draws marks, on the editor's canvas and into the exported image alike. The painter paints on a QImage of format RGB32
// or ARGB32_Premultiplied; its coordinates are target points with the origin at the lower left of the capture and y up.
// The same arguments give the same pixels wherever the painter is clipped. Any thread that may paint on a QImage.
namespace AnnotationDrawing {

// What marks are drawn with. Rectangles are target points.
struct Scene {
    double scale = 1;        // target points of an image point
    QImage blurredFull = {}; // the whole capture, as RedactionSources makes it; null where no mark needs it
    QImage pixelatedFull = {};
    QRectF fullRect = {};                        // where the whole capture lies
    std::vector<QRectF> shadeRegion = {};        // what spotlights darken
    std::optional<QUuid> excludingTextID = {};   // a label that is being edited in place
    std::optional<QRectF> culledTo = {};         // marks that miss it are skipped
    std::optional<QPainterPath> regionClip = {}; // clips redactions, by the winding rule
    MeasureInk::Reading reading = {};
    MarkSprites* sprites = nullptr; // of whoever draws the same marks again
};

// All marks, in one order wherever they are drawn: drawOnCapture(), then drawAbove().
void drawAll(QPainter& painter, std::span<const Annotation> annotations, const Scene& scene);

// What changes the capture itself: first blurred and pixelated places, then blackouts, so that nothing of what they
// hide comes back with a blur that overlaps them; then the highlighters as one layer for each colour, then the shade
// around the spotlights. Where the capture is clipped or laid on something, so is this.
void drawOnCapture(QPainter& painter, std::span<const Annotation> annotations, const Scene& scene);
// All other marks, later ones on top. They may reach over the capture's edge.
void drawAbove(QPainter& painter, std::span<const Annotation> annotations, const Scene& scene);

// One mark. A spotlight or a highlighter is drawn as if it were the only one.
void draw(QPainter& painter, const Annotation& annotation, const Scene& scene);

// The piece of `source`, a picture of the whole capture, that lies in the rectangle, put back there. The rectangle is
// rounded outward to whole pixels.
void drawRegion(QPainter& painter, const QImage& source, const QRectF& rect, const QRectF& fullRect,
                const std::optional<QPainterPath>& clip);
void drawBlackout(QPainter& painter, const QRectF& rect, const std::optional<QPainterPath>& clip);
void drawStep(QPainter& painter, const Annotation& step, double scale, const QColor& color);
// Darkens the region but for the spotlights, as much as the last one says. What is transparent stays so.
void drawSpotlightShade(QPainter& painter, const std::vector<const Annotation*>& spotlights,
                        const std::vector<QRectF>& shadeRegion, double scale);

} // namespace AnnotationDrawing

} // namespace Kovrel
