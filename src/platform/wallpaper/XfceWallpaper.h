#pragma once

#include "platform/wallpaper/Wallpaper.h"

namespace Kovrel {

// The wallpaper in the settings of XFCE, which its daemon tells.
namespace XfceWallpaper {

// That of a monitor on the first workspace. No value where none was chosen, or nobody answers.
std::optional<Wallpaper> of(const QString& monitor);

} // namespace XfceWallpaper

} // namespace Kovrel
