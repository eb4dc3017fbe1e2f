#pragma once

#include "model/Geometry.h"

namespace Kovrel {

// The pointer over the canvas, with the keys that are held.
struct CanvasPointer {
    Point at;         // image points, y up
    double pixel = 1; // image points to a point of the screen: the inverse of the zoom
    bool shift = false;
    bool alt = false;
    bool control = false;
    int clicks = 1; // 2: the second of a double click

    // How near is near enough, in image points.
    double reach() const { return 6 * pixel; }

    double handleReach() const { return 9 * pixel; }

    double turnDistance() const { return 24 * pixel; }

    double snapReach() const { return control ? 0 : 5 * pixel; } // Control: let it lie where it is put
};

} // namespace Kovrel
