#pragma once

#include "platform/x11/X11Connection.h"

#include <xcb/render.h>

namespace Kovrel {

// A way to show pixels, and its format in the Render extension.
struct X11Visual {
    uint8_t depth = 0;
    xcb_visualid_t id = XCB_NONE;
    xcb_render_pictformat_t format = XCB_NONE;
};

// Those of a screen that we use; an id of 0 where the server has none.
struct X11Visuals {
    X11Visual opaque;      // the screen's own
    X11Visual translucent; // 32-bit pixels with alpha, premultiplied

    static X11Visuals read(X11Connection& connection);
};

} // namespace Kovrel
