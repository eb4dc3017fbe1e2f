#pragma once

#include "model/RawStrings.h"

namespace Kovrel {

// How a text mark stands out from what is behind it.
enum class AnnotationTextStyle {
    plain,
    stroke,
    background,
    bubble,
};

template <>
struct RawStrings<AnnotationTextStyle> {
    static constexpr std::array table{
        std::pair{AnnotationTextStyle::plain, "plain"},
        std::pair{AnnotationTextStyle::stroke, "stroke"},
        std::pair{AnnotationTextStyle::background, "background"},
        std::pair{AnnotationTextStyle::bubble, "bubble"},
    };
};

// Whether the text stands on a filled plate.
constexpr bool isChip(AnnotationTextStyle style)
{
    return style == AnnotationTextStyle::background || style == AnnotationTextStyle::bubble;
}

} // namespace Kovrel
