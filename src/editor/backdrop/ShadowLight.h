#pragma once

namespace Kovrel {

// Whither the light throws a card's shadow: x to the right, y downwards (unlike points, whose y goes up). The length,
// of which only the part up to 1 counts, says how much of a layer's offset is used; (0, 0) is light from the front.
struct ShadowLight {
    double x = 0;
    double y = 1;
    bool operator==(const ShadowLight&) const = default;
};

} // namespace Kovrel
