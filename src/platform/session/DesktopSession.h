#pragma once

#include <QString>

namespace Kovrel {

// What kind of desktop this process runs on.
namespace DesktopSession {

enum class Kind { x11, wayland, none };

Kind kind();

// Whether this installation has what it takes to show a window here: without it Qt would end the process.
bool canShowWindows();

// Why nothing can be captured on this desktop, and what to do about it; empty where it can.
QString obstacle();

} // namespace DesktopSession

} // namespace Kovrel
