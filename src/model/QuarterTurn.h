#pragma once

namespace Kovrel {

// A turn by 90 degrees.
enum class QuarterTurn {
    left,  // counterclockwise
    right, // clockwise
};

} // namespace Kovrel
