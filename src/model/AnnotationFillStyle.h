#pragma once

#include "model/RawStrings.h"

namespace Kovrel {

// How the inside of a shape is drawn.
enum class AnnotationFillStyle {
    outline,
    translucent,
    hatched,
    filled,
};

template <>
struct RawStrings<AnnotationFillStyle> {
    static constexpr std::array table{
        std::pair{AnnotationFillStyle::outline, "outline"},
        std::pair{AnnotationFillStyle::translucent, "translucent"},
        std::pair{AnnotationFillStyle::hatched, "hatched"},
        std::pair{AnnotationFillStyle::filled, "filled"},
    };
};

} // namespace Kovrel
