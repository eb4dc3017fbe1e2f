#pragma once

#include "model/Geometry.h"

#include <span>
#include <vector>

namespace Kovrel {

// What is dragged goes to edges and middles of what is there already, and to equal distances between. Image points, y
// up. Pure; any thread.
namespace Snapping {

// A line that shows why: along what things have in common, or across a distance that is there twice.
struct Guide {
    Point from;
    Point to;
    bool isGap = false;
    bool operator==(const Guide&) const = default;
};

struct Snapped {
    Size shift; // what brings it there; 0 where nothing is within reach
    std::vector<Guide> guides;
};

// A frame that is moved as a whole. `canvas` counts as one of the others, but for distances.
Snapped moved(const Rect& moving, std::span<const Rect> others, const Rect& canvas, double tolerance);

// A place of which x, y or both are free: a side or a corner that is dragged.
Snapped dragged(Point place, bool isFreeAcross, bool isFreeUp, std::span<const Rect> others, const Rect& canvas,
                double tolerance);

} // namespace Snapping

} // namespace Kovrel
