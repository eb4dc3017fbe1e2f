#pragma once

#include <QStringList>

#include <memory>

namespace Kovrel {

// What kind of desktop this process runs on.
namespace DesktopSession {

enum class Kind { x11, wayland, none };

Kind kind();

// Null where this installation has not what it takes to show a window here: without it Qt would end the process. A
// server may start anew when its last client goes, so keep this until there is another one.
std::shared_ptr<void> reachDisplay();

// Why nothing can be captured on this desktop, and what to do about it; empty where it can.
QString obstacle();
// The same apart: why, and what to do one thing after the other.
QString obstacleReason();
QStringList obstacleRemedy();

} // namespace DesktopSession

} // namespace Kovrel
