#pragma once

#include "platform/Windows.h"
#include "platform/x11/X11Connection.h"

#include <optional>
#include <vector>

namespace Kovrel {

// The windows of an X server as the window manager and the stacking order of the root's children tell them.
namespace X11WindowList {

struct Entry {
    WindowInfo info;         // without the application and the frame in points
    QByteArray instanceName; // WM_CLASS
    QByteArray className;
};

// Front to back: the windows of the client list, which may be minimised or on another desktop, and windows that
// manage themselves, like menus, while they are shown. No value when there is no server.
std::optional<std::vector<Entry>> read(X11Connection& connection);

} // namespace X11WindowList

} // namespace Kovrel
