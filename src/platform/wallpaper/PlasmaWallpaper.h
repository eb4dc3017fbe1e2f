#pragma once

#include "platform/wallpaper/Wallpaper.h"

namespace Kovrel {

// The wallpaper in Plasma's file of containments.
namespace PlasmaWallpaper {

// That of the display which Plasma counts as `screen`, 0 being the primary one. No value where none was chosen: then
// the theme's is shown, which the file does not tell.
std::optional<Wallpaper> from(const QString& file, int screen, QSize display);

} // namespace PlasmaWallpaper

} // namespace Kovrel
