#pragma once

#include "model/RawStrings.h"

namespace Kovrel {

// The ways in which a picked colour is written, in the order in which a key goes through them.
enum class ColorNotation { hex, rgb, hsl, oklch };

template <>
struct RawStrings<ColorNotation> {
    static constexpr std::array table{
        std::pair{ColorNotation::hex, "hex"},
        std::pair{ColorNotation::rgb, "rgb"},
        std::pair{ColorNotation::hsl, "hsl"},
        std::pair{ColorNotation::oklch, "oklch"},
    };
};

} // namespace Kovrel
