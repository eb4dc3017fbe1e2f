#pragma once

#include "model/RawStrings.h"

namespace Kovrel {

// The corner of the screen in which cards pile up.
enum class PreviewPosition {
    topLeft,
    topRight,
    bottomLeft,
    bottomRight,
};

template <>
struct RawStrings<PreviewPosition> {
    static constexpr std::array table{
        std::pair{PreviewPosition::topLeft, "topLeft"},
        std::pair{PreviewPosition::topRight, "topRight"},
        std::pair{PreviewPosition::bottomLeft, "bottomLeft"},
        std::pair{PreviewPosition::bottomRight, "bottomRight"},
    };
};

} // namespace Kovrel
