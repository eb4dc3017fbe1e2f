#pragma once

#include "model/RawStrings.h"

namespace Kovrel {

// The catalogues from which an editor backdrop is chosen.
enum class BackdropCatalogue {
    pictures,
    colors,
    gradients,
};

template <>
struct RawStrings<BackdropCatalogue> {
    static constexpr std::array table{
        std::pair{BackdropCatalogue::pictures, "pictures"},
        std::pair{BackdropCatalogue::colors, "colors"},
        std::pair{BackdropCatalogue::gradients, "gradients"},
    };
};

} // namespace Kovrel
