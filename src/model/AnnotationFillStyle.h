#pragma once

#include "model/RawStrings.h"

namespace Kovrel {

// How the inside of a shape is drawn.
enum class AnnotationFillStyle {
    outline,
    filled,
    translucent,
    hatched,
};

template <>
struct RawStrings<AnnotationFillStyle> {
    static constexpr std::array table{
        std::pair{AnnotationFillStyle::outline, "outline"},
        std::pair{AnnotationFillStyle::filled, "filled"},
        std::pair{AnnotationFillStyle::translucent, "translucent"},
        std::pair{AnnotationFillStyle::hatched, "hatched"},
    };
};

} // namespace Kovrel
