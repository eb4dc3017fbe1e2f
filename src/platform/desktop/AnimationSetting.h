#pragma once

#include "platform/MainLoop.h"
#include "platform/Workers.h"

namespace Kovrel {

// Whether the user wants windows to move and fade, as the running desktop is set: KDE, GNOME, and what GTK's own file
// says elsewhere. Where nothing is said, they do.
namespace AnimationSetting {

// Looks at the disk, and may run a program: not for the main thread.
bool isOn();

// The same in the background; the reply comes on the main thread.
void read(MainLoop& loop, Workers& workers, std::function<void(bool isOn)> reply);

} // namespace AnimationSetting

} // namespace Kovrel
