#pragma once

#include "editor/marks/Annotation.h"

#include <optional>
#include <vector>

namespace Kovrel {

// What a mark can be held by. Image points, y up. Pure; any thread.
enum class MarkHandle {
    lowerLeft,
    lower,
    lowerRight,
    left,
    right,
    upperLeft,
    upper,
    upperRight,
    turn,  // above a box that turns
    start, // of a line
    end,
    curve, // its middle, by which it is bent
    tip,   // the side of an arrow's head
};

namespace MarkHandles {

struct Place {
    MarkHandle handle;
    Point at;
};

// Modifiers of a drag, as they are now.
struct Manner {
    bool keepsShape = false; // or an angle in whole steps, where an end or a rotation is dragged
    bool fromCentre = false;
    double tolerance = 0; // what counts as nearly straight
    bool operator==(const Manner&) const = default;
};

// In the order in which they are looked for: small ones first. `turnDistance`: how far the turning handle stands above.
std::vector<Place> of(const Annotation& mark, double turnDistance);
// The nearest within `tolerance`.
std::optional<MarkHandle> at(const Annotation& mark, Point point, double tolerance, double turnDistance);

// The mark as it was when the drag began, with a handle brought to a point. What is opposite stays where it is.
Annotation dragged(const Annotation& start, MarkHandle handle, Point to, const Manner& manner);

// The frame of several marks, held by its corners: where it goes, shape kept, and how much larger it gets.
struct GroupStretch {
    Point centre; // that stays
    double factor = 1;
};

GroupStretch groupStretch(const Rect& bounds, MarkHandle corner, Point to, bool fromCentre);

// Which way an arrow points from the frame's middle to a handle, before it is turned, for cursors. Each is -1, 0 or 1.
Point direction(MarkHandle handle);
// A point nearest to `to` that lies from `from` at a multiple of `step` radians.
Point atWholeAngle(Point from, Point to, double step);

} // namespace MarkHandles

} // namespace Kovrel
