#pragma once

#include <QString>

namespace Kovrel {

// What kind of desktop this process runs on.
namespace DesktopSession {

enum class Kind { x11, wayland, none };

Kind kind();

// Why nothing can be captured on this desktop, and what to do about it; empty where it can.
QString obstacle();

} // namespace DesktopSession

} // namespace Kovrel
