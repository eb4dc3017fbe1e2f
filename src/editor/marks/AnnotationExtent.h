#pragma once

#include "editor/marks/Annotation.h"
#include "editor/marks/MeasureInk.h"

#include <QRectF>

namespace Kovrel {

// The areas that marks cover, in target points. A mark that is not drawable covers nothing. Pure.
namespace AnnotationExtent {

// What all points of a mark span, in image points.
QRectF pointsBox(const Annotation& mark);

// The area that the ink covers, before and after it is turned.
QRectF visualExtent(const Annotation& mark, double scale, const MeasureInk::Reading& reading = {});
QRectF rotatedVisualExtent(const Annotation& mark, double scale, const MeasureInk::Reading& reading = {});

// An area that holds all of the ink and its shadow, and is found without making it: no text is measured, no path is
// built.
QRectF cullBound(const Annotation& mark, double scale);

} // namespace AnnotationExtent

} // namespace Kovrel
