#pragma once

#include "platform/Display.h"

namespace Kovrel {

// Where what floats above other windows finds its place, so that toasts and cards keep to the same lines. Stateless;
// any thread.
namespace ScreenChrome {

// What of a display is free of panels and docks, in global points; all of it where the desktop does not tell.
Rect anchor(const Display& display);

} // namespace ScreenChrome

} // namespace Kovrel
