#pragma once

#include "platform/OverlaySurfaces.h"

namespace Kovrel {

// The pointers of the selection, drawn for the scale of a display.
namespace SelectionCursor {

// While an area is dragged out: its middle is the pixel that is pointed at.
OverlayCursor crosshair(double scale);
// While a window is picked.
OverlayCursor camera(double scale);

} // namespace SelectionCursor

} // namespace Kovrel
