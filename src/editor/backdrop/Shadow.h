#pragma once

#include <vector>

namespace Kovrel {

// A shadow made of several, as light in a room makes it: a dark, tight one where the card touches the page, and wide,
// faint ones around it.
struct Shadow {
    // Lengths are fractions of the shorter side of the subject, so that a shadow suits captures of any size.
    struct Layer {
        double offset = 0;  // whither the light throws it
        double radius = 0;  // of the blur; a Gaussian's standard deviation is half of it
        double opacity = 0; // 0 to 1
        bool operator==(const Layer&) const = default;
    };

    std::vector<Layer> layers;
    bool operator==(const Shadow&) const = default;

    static Shadow none();
    static Shadow subtle(); // a card lying on the page
    static Shadow soft();   // a card hovering over it
    static Shadow deep();   // a card high above it
};

} // namespace Kovrel
