#pragma once

#include "pins/PinGeometry.h"
#include "platform/Display.h"

#include <optional>

namespace Kovrel {

// Where pins stand on displays, which may come, go and change their scale. Stateless; any thread.
namespace PinPlacement {

// What outlives a change of displays.
struct Place {
    DisplayArea area;
    double zoom = 1;
};

struct Standing {
    Display display; // that holds the middle of the frame
    PinGeometry::Frame frame;
};

// In the middle of what a display has free, each one a bit off the one before.
Standing spawn(const Display& display, const PinGeometry::Picture& picture, int pinsBefore);

// The display that a frame is on; the nearest one where its middle is on none. Nothing without displays.
std::optional<Display> displayOf(const DisplayList& displays, const QRectF& frame);

Place kept(const Standing& standing);
// Where it was, in the scale of now; none stands entirely beyond its display. Where that has gone it is on the first
// one, and whole. Nothing without displays.
std::optional<Standing> restored(const DisplayList& displays, const Place& place, const PinGeometry::Picture& picture);

// A pin that was dragged to a display of another scale is as large there as it was, and stays under the pointer.
Standing settled(const Display& display, const PinGeometry::Frame& frame, const PinGeometry::Picture& picture,
                 QPointF pointer);

} // namespace PinPlacement

} // namespace Kovrel
