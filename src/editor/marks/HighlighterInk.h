#pragma once

#include "editor/marks/Annotation.h"

#include <QPainterPath>

#include <optional>
#include <vector>

class QPainter;

namespace Kovrel {

// The ink of the highlighter: an upright nib that is swept along a stroke. Any thread.
namespace HighlighterInk {

// Half the height of the nib of a mark, in image points.
double tip(const Annotation& highlighter);

// What the nib covers, in target points. Points that are closer than `tip` (image points) to the last one are left out,
// but for the last of all, where the pointer is. Filled by the winding rule.
QPainterPath highlighterSweep(const Annotation& highlighter, double tip, double scale);
// Whether a point (image points) is on the sweep.
bool highlighterSweepContains(const Annotation& highlighter, Point point);

// How much light is added above a dark page of that luminance: up to 0.3, in steps of 0.05.
double lift(double pageLuma);

// Draws the marks, all highlighters: those of one colour on pages of one kind, light or dark, as one layer, so that
// none darkens twice; the last one says how dark the page is. Marks that miss `culledTo` (target points) count for
// their layer and are not drawn. The painter is one for Blending::fillPaths; its y points up.
void drawHighlightLayer(QPainter& painter, const std::vector<const Annotation*>& highlighters, double scale,
                        const std::optional<QRectF>& culledTo = std::nullopt);

} // namespace HighlighterInk

} // namespace Kovrel
