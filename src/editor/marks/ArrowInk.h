#pragma once

#include "model/Geometry.h"

#include <QPainterPath>

#include <optional>

namespace Kovrel {

// The outline of an arrow: a shaft that widens from the tail to the head. Pure.
namespace ArrowInk {

// Ends in image points, the path in target points: everything is multiplied by `scale`. With a control point the shaft
// follows the quadratic curve. `tipScale` enlarges the head. An arrow that is hardly longer than its head is a head
// only. The path is filled by its winding rule.
QPainterPath arrowInkPath(Point from, Point to, std::optional<Point> control, double lineWidth, double scale,
                          double tipScale = 1);

// The corner of the head to the left of its direction, in image points.
Point headCorner(Point from, Point to, std::optional<Point> control, double lineWidth, double tipScale);

} // namespace ArrowInk

} // namespace Kovrel
