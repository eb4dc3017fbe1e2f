#pragma once

#include "model/Geometry.h"

namespace Kovrel {

// The shapes that a crop is brought into. Image points; any thread.
namespace CropShapes {

// On whole pixels of the capture, one of them at least; `scale`: pixels of a point.
Rect onPixels(const Rect& crop, const Rect& canvas, double scale);

// As wide, measured by its height, as `aspect` says: as large as it was and about the same middle, as far as the canvas
// has room. On whole pixels.
Rect shaped(const Rect& crop, const Rect& canvas, double aspect, double scale);

} // namespace CropShapes

} // namespace Kovrel
