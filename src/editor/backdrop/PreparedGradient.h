#pragma once

#include "editor/backdrop/BackdropGradient.h"
#include "imaging/OklabColor.h"

#include <QImage>
#include <QSize>

#include <array>
#include <vector>

namespace Kovrel {

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
