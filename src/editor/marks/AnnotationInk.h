#pragma once

#include "editor/marks/Annotation.h"
#include "editor/marks/MeasureInk.h"

#include <QColor>
#include <QPainterPath>
#include <QPen>
#include <QTransform>

namespace Kovrel {

// The shapes of marks, from which they are drawn, measured and hit. Arguments are image points, what comes out target
// points: multiplied by `scale`, y up. Pure.
namespace AnnotationInk {

QColor colorOf(const Annotation& mark);
QRectF scaled(const Rect& rect, double scale);
QPointF scaled(Point point, double scale);

// Whether the mark can be drawn at all: its numbers are finite, within a million target points, and not negative where
// they are sizes.
bool isDrawable(const Annotation& mark, double scale);

// All points joined by straight lines.
QPainterPath freehandPath(const Annotation& mark, double scale);
// The line along which a pen or a line is stroked; empty for other kinds.
QPainterPath strokeInkPath(const Annotation& mark, double scale);
// A long stroke in pieces that share their ends: a path of thousands of crossing lines takes minutes to fill.
std::vector<std::vector<Point>> pieces(const std::vector<Point>& points, double scale);
// The ink of a pen, piece by piece.
std::vector<QPainterPath> penInk(const Annotation& mark, double scale);
// The outline of a rectangle, an ellipse, a redaction, a spotlight or an image.
QPainterPath shapePath(const Annotation& mark, double scale);
// What strokes the lines and outlines of a mark.
QPen pen(const Annotation& mark, double scale);

double stepRadius(const Annotation& mark, double scale);
double stepRingWidth(const Annotation& mark, double scale);
double chipRadius(const Annotation& mark, double scale);

QPointF nearestPointOnRoundedRect(QPointF point, const QRectF& rect, double radius);
// The tail between a chip and the tip that it points to. All in target points.
QPainterPath leaderInk(const QRectF& chip, QPointF tip, double fontSize, double cornerRadius);

// All that a mark covers, its inside and the picture behind a redaction included, before it is rotated. Filled by the
// winding rule. The badge of a measure is as wide as what it reads.
QPainterPath inkPath(const Annotation& mark, double scale, const MeasureInk::Reading& reading = {});
// Turns what was drawn upright; the identity for kinds that do not turn.
QTransform rotation(const Annotation& mark, double scale);

// Whether a point is on the line around a shape, or so near to it.
bool edgeContains(const Annotation& mark, Point point, double tolerance);
// Where the mark can be hit with a pointer that is `tolerance` image points wide to each side.
bool contains(const Annotation& mark, Point point, double tolerance, const MeasureInk::Reading& reading = {});

} // namespace AnnotationInk

} // namespace Kovrel
