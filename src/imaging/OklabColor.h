#pragma once

#include <QColor>

#include <array>

namespace Kovrel {

// A colour's place in Oklab, in which equal steps look equal (B. Ottosson, "A perceptual color space for image
// processing", 2020). Any thread.
struct OklabColor {
    float lightness = 0; // 0 to 1
    float a = 0;
    float b = 0;

    static OklabColor of(const QColor& color);
    // Each 0 to 255; what sRGB does not have is cut off.
    std::array<float, 3> srgb() const;
};

} // namespace Kovrel
