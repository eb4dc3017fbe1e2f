#pragma once

#include "editor/marks/Annotation.h"
#include "model/MeasureUnit.h"

#include <QPainterPath>

class QPainter;

namespace Kovrel {

// A measured distance: a line between two ticks, and a badge that tells its length. In target points, y up.
namespace MeasureInk {

// In what the badge tells lengths.
struct Reading {
    MeasureUnit unit = MeasureUnit::pixels;
    double pixelsToPoint = 1; // the capture's scale
};

QString badgeText(const Annotation& measure, const Reading& reading);
// Where the badge is: on the middle of the line, or beside it when it would cover the whole line.
QRectF measureBadgeRect(const Annotation& measure, double scale, const Reading& reading = {});
// In image points: an area that holds the badge, found without measuring its text.
QRectF badgeBound(const Annotation& measure);
void drawMeasure(QPainter& painter, const Annotation& measure, double scale, const Reading& reading);

// All that it covers.
QPainterPath inkPath(const Annotation& measure, double scale, const Reading& reading);

} // namespace MeasureInk

} // namespace Kovrel
