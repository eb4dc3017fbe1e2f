#pragma once

#include "platform/OverlaySurfaces.h"
#include "platform/Pointer.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Visuals.h"

namespace Kovrel {

// How the pointer looks.
namespace X11Cursor {

// At this moment. No value when the server does not tell.
std::optional<PointerImage> read(X11Connection& connection);

// A cursor for windows of ours, to be freed by whoever asks for it: windows keep those that they use. XCB_NONE where
// the server has no coloured cursors.
xcb_cursor_t create(X11Connection& connection, const X11Visuals& visuals, const OverlayCursor& cursor);

} // namespace X11Cursor

} // namespace Kovrel
