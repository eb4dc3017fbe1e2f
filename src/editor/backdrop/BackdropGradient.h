#pragma once

#include <QString>

#include <vector>

namespace Kovrel {

// A canvas of soft colours. Colours are hex texts ("#RRGGBB"), mixed evenly to the eye (in Oklab).
struct BackdropGradient {
    struct Stop {
        QString color;
        double location = 0; // 0 to 1, ascending
        bool operator==(const Stop&) const = default;
    };

    // A soft spot of colour on the gradient, fading out to its rim.
    struct Blob {
        QString color;
        double x = 0;      // of its middle, as a fraction of the canvas from the left
        double y = 0;      // and from the bottom
        double radius = 0; // as a fraction of the longer side of the canvas
        double opacity = 1;
        bool operator==(const Blob&) const = default;
    };

    QString id;
    QString name;
    std::vector<Stop> stops;
    double angleDegrees = 0; // whither the stops run: 0 to the right, 90 upwards; corner to corner
    std::vector<Blob> blobs;
    bool operator==(const BackdropGradient&) const = default;
};

} // namespace Kovrel
