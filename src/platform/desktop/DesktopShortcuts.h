#pragma once

#include "platform/ShortcutSwitches.h"

namespace Kovrel {

namespace DesktopShortcuts {

// Those of the desktop that runs, by XDG_CURRENT_DESKTOP; null on a desktop that has none that we know of.
std::shared_ptr<ShortcutSwitches> find();

} // namespace DesktopShortcuts

} // namespace Kovrel
