#pragma once

#include "model/RawStrings.h"

namespace Kovrel {

// What a window capture is set on.
enum class WindowBackdropStyle {
    wallpaper,   // the desktop picture
    transparent, // padding only
    solidColor,  // one colour
    trimShadow,  // the bare window
};

template <>
struct RawStrings<WindowBackdropStyle> {
    static constexpr std::array table{
        std::pair{WindowBackdropStyle::wallpaper, "wallpaper"},
        std::pair{WindowBackdropStyle::transparent, "transparent"},
        std::pair{WindowBackdropStyle::solidColor, "solidColor"},
        std::pair{WindowBackdropStyle::trimShadow, "trimShadow"},
    };
};

} // namespace Kovrel
