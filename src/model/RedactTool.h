#pragma once

#include "model/RawStrings.h"

namespace Kovrel {

// How a redaction hides what is under it.
enum class RedactTool {
    blur,
    pixelate,
    blackout,
};

template <>
struct RawStrings<RedactTool> {
    static constexpr std::array table{
        std::pair{RedactTool::blur, "blur"},
        std::pair{RedactTool::pixelate, "pixelate"},
        std::pair{RedactTool::blackout, "blackout"},
    };
};

} // namespace Kovrel
