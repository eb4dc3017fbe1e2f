#pragma once

#include "editor/marks/Annotation.h"

#include <QPainterPath>

class QPainter;

namespace Kovrel {

// The ink of the highlighter: an upright nib that is swept along a stroke. Any thread.
namespace HighlighterInk {

// Half the height of the nib of a mark, in image points.
double tip(const Annotation& highlighter);

// What the nib covers, in target points. Points that are closer than `tip` (image points) to the last one are left out.
// Filled by the winding rule.
QPainterPath highlighterSweep(const Annotation& highlighter, double tip, double scale);
// Whether a point (image points) is on the sweep.
bool highlighterSweepContains(const Annotation& highlighter, Point point);

// How much light is added above a dark page of that luminance: up to 0.3, in steps of 0.05.
double lift(double pageLuma);

// Draws the marks, all highlighters: those of one colour on pages of one kind, light or dark, as one layer, so that
// none darkens twice; the last one says how dark the page is. The painter is one for Blending::fillPath; its y points
// up.
void drawHighlightLayer(QPainter& painter, const std::vector<const Annotation*>& highlighters, double scale);

} // namespace HighlighterInk

} // namespace Kovrel
