#pragma once

#include <array>

namespace Kovrel {

// The shape that a canvas is brought into, such as 16:9. Both are 1 to 10,000.
struct AspectRatio {
    int width = 1;
    int height = 1;
    bool operator==(const AspectRatio&) const = default;
};

// What is offered, for canvases and crops alike.
inline constexpr std::array<AspectRatio, 10> usualAspectRatios{
    {{1, 1}, {4, 3}, {3, 2}, {16, 10}, {16, 9}, {21, 9}, {4, 5}, {3, 4}, {2, 3}, {9, 16}}};

} // namespace Kovrel
