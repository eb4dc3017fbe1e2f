#pragma once

#include "picking/LoupeStill.h"

#include <QPoint>

#include <optional>

namespace Kovrel {

// From points of the screen to pixels of its frozen picture. Any thread.
namespace ColorLoupeGeometry {

// The pixel of the picture, from its top-left corner, that shows a global point; nothing beyond it. The right and the
// top edge of a display belong to its neighbours.
std::optional<QPoint> pixel(Point at, const LoupeStill& in);

// The middle of a root pixel, in global points: rounding leads from there to no other pixel.
Point middle(QPoint rootPixel, const Display& on);

} // namespace ColorLoupeGeometry

} // namespace Kovrel
