#pragma once

namespace Kovrel {

// The shape that a canvas is brought into, such as 16:9. Both are 1 to 10,000.
struct AspectRatio {
    int width = 1;
    int height = 1;
    bool operator==(const AspectRatio&) const = default;
};

} // namespace Kovrel
