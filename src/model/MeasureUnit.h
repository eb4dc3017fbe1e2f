#pragma once

#include "model/RawStrings.h"

namespace Kovrel {

// The unit in which lengths on the screen are read.
enum class MeasureUnit {
    pixels,
    points, // pixels divided by the scale
};

template <>
struct RawStrings<MeasureUnit> {
    static constexpr std::array table{
        std::pair{MeasureUnit::pixels, "px"},
        std::pair{MeasureUnit::points, "pt"},
    };
};

} // namespace Kovrel
