#pragma once

#include "model/RawStrings.h"

namespace Kovrel {

// The rows of chips from which an editor backdrop is chosen.
enum class BackdropChips {
    pictures,
    colors,
    gradients,
};

template <>
struct RawStrings<BackdropChips> {
    static constexpr std::array table{
        std::pair{BackdropChips::pictures, "pictures"},
        std::pair{BackdropChips::colors, "colors"},
        std::pair{BackdropChips::gradients, "gradients"},
    };
};

} // namespace Kovrel
