#pragma once

#include "platform/ScreenPixels.h"
#include "platform/x11/X11ImageReader.h"

namespace Kovrel {

// The pixels of one window as it would look with nothing in front of it.
namespace X11WindowImage {

// As `Windows::grab` answers; the image covers what X11Frame calls visible. Blocks the thread for up to 100 ms
// where nothing composes the desktop, since the window must be asked to paint what is covered.
GrabbedImage grab(X11ImageReader& reader, xcb_window_t window);

} // namespace X11WindowImage

} // namespace Kovrel
