#pragma once

#include "editor/backdrop/BackdropGradient.h"

#include <QImage>
#include <QSize>

#include <array>
#include <vector>

namespace Kovrel {

// A colour's place in Oklab, in which equal steps look equal (B. Ottosson, "A perceptual color space for image
// processing", 2020).
struct OklabColor {
    float lightness = 0;
    float a = 0;
    float b = 0;
};

// A gradient whose colours have been worked out, ready for any canvas. Any thread.
class PreparedGradient {
public:
    explicit PreparedGradient(const BackdropGradient& gradient);

    // sRGB, each 0 to 255, at a point of a canvas: fractions from the left and from the top.
    std::array<float, 3> colorAt(double x, double y, QSize canvas) const;

private:
    struct Blob {
        OklabColor color;
        double x, y, radius, opacity;
    };

    OklabColor alongStops(double location) const;

    std::vector<std::pair<OklabColor, double>> m_stops;
    std::vector<Blob> m_blobs;
    double m_cosine;
    double m_sine;
};

} // namespace Kovrel
