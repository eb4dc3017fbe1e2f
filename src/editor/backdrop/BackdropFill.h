#pragma once

#include "model/RawStrings.h"

#include <QString>

namespace Kovrel {

// What a canvas is filled with.
struct BackdropFill {
    enum class Kind { none, color, gradient, picture };

    Kind kind = Kind::none;
    QString value; // hex of a colour; id of a gradient or picture of the catalogue, or the path of the user's own
    bool operator==(const BackdropFill&) const = default;
};

template <>
struct RawStrings<BackdropFill::Kind> {
    static constexpr std::array table{
        std::pair{BackdropFill::Kind::none, "none"},
        std::pair{BackdropFill::Kind::color, "color"},
        std::pair{BackdropFill::Kind::gradient, "gradient"},
        std::pair{BackdropFill::Kind::picture, "picture"},
    };
};

} // namespace Kovrel
