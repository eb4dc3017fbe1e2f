#pragma once

#include "model/RawStrings.h"

namespace Kovrel {

// The sound of the shutter.
enum class CaptureSound {
    apple, // a camera's shutter
    pop,
    none, // silent
};

template <>
struct RawStrings<CaptureSound> {
    static constexpr std::array table{
        std::pair{CaptureSound::apple, "apple"},
        std::pair{CaptureSound::pop, "pop"},
        std::pair{CaptureSound::none, "none"},
    };
};

} // namespace Kovrel
