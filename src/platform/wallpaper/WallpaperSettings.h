#pragma once

#include "platform/Display.h"
#include "platform/wallpaper/Wallpaper.h"

namespace Kovrel {

// The wallpaper in the settings of the desktop that runs. They ask other programs and read files: not for the main
// thread.
namespace WallpaperSettings {

// That of a display, which is one of all. No value where the desktop keeps none, or it is none that we know.
std::optional<Wallpaper> of(const Display& display, const DisplayList& all);

// What `gsettings list-recursively` says of the background's schema of GNOME, Cinnamon or MATE.
std::optional<Wallpaper> fromGsettings(const QString& listing, bool isDark);

} // namespace WallpaperSettings

} // namespace Kovrel
