#pragma once

#include "model/RawStrings.h"

namespace Kovrel {

// Towards which side of its canvas a capture is pushed, row by row from the top.
enum class CardAlignment {
    topLeft,
    top,
    topRight,
    left,
    center,
    right,
    bottomLeft,
    bottom,
    bottomRight,
};

template <>
struct RawStrings<CardAlignment> {
    static constexpr std::array table{
        std::pair{CardAlignment::topLeft, "topLeft"},         std::pair{CardAlignment::top, "top"},
        std::pair{CardAlignment::topRight, "topRight"},       std::pair{CardAlignment::left, "left"},
        std::pair{CardAlignment::center, "center"},           std::pair{CardAlignment::right, "right"},
        std::pair{CardAlignment::bottomLeft, "bottomLeft"},   std::pair{CardAlignment::bottom, "bottom"},
        std::pair{CardAlignment::bottomRight, "bottomRight"},
    };
};

// 0 is left, 1 the middle, 2 right.
constexpr int column(CardAlignment alignment)
{
    return int(alignment) % 3;
}

// 0 is the top, 1 the middle, 2 the bottom.
constexpr int row(CardAlignment alignment)
{
    return int(alignment) / 3;
}

} // namespace Kovrel
