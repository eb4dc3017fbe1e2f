#pragma once

#include "platform/x11/X11Connection.h"

#include <QRect>

#include <optional>

namespace Kovrel {

// Where a window is on the screen, and in which child of the root the window manager has put it.
struct X11Frame {
    xcb_window_t topLevel = XCB_NONE; // the window itself where nothing is around it
    QRect outer;                      // root pixels of the top-level window, its border included
    QRect visible;                    // root pixels that belong to the window for the eye: with its decoration,
                                      // without invisible edges for resizing; lies within `outer`
    QRect client;                     // root pixels of the window without what the window manager put around it
    bool isViewable = false;          // mapped with all that it is in

    // No value when the window is gone.
    static std::optional<X11Frame> of(X11Connection& connection, xcb_window_t window);
    // The child of the root that holds a window; none when the window is gone.
    static xcb_window_t topLevelOf(X11Connection& connection, xcb_window_t window);
};

} // namespace Kovrel
