#pragma once

#include <QRectF>
#include <QSize>

namespace Kovrel {

// Sizes and parts of pins as functions of rectangles: y down, origin top-left. Points, unless a name says otherwise.
// Stateless; any thread.
namespace PinGeometry {

// A pin never gets smaller, whatever it shows.
inline constexpr QSizeF smallest(120, 90);

// The picture of a pin on a display.
struct Picture {
    QSizeF size;          // at actual size
    double spawnZoom = 1; // what it was shown at first
    double scale = 1;     // pixels per point
};

// Where a pin stands, in pixels, and how many times its actual size the picture has.
struct Frame {
    QRectF pixels;
    double zoom = 1;

    bool operator==(const Frame&) const = default;
};

// The part of a pin under the pointer that resizes it; none: there it is moved.
enum class Zone { none, top, bottom, left, right, topLeft, topRight, bottomLeft, bottomRight };

enum class Button { none, close, unpin, edit };

// The size of a picture in points, by its pixels for each.
QSizeF pointSize(QSize pixels, double scale);
// At most 1, so that the picture takes no more than its share of what a display has free.
double spawnZoom(QSizeF picture, QSizeF usable);
// The pin around a picture.
QSizeF frameSize(QSizeF picture, double zoom);
// What of a frame's size the picture covers, whose frame may be larger than itself.
QSizeF pictureWithin(QSizeF frame, QSizeF picture, double zoom);
// Of a pin that has just come.
QSizeF spawnSize(QSize pixels, double scale, QSizeF usable);

// Of a pin of this size.
Zone zoneAt(QSizeF pin, QPointF point);
QRectF buttonSquare(QSizeF pin, Button button);
Button buttonAt(QSizeF pin, QPointF point);

// What a drag in a zone makes of the frame at its start, by the pointer's movement since then in pixels. The picture
// keeps its proportions, and what lies across from the zone its place.
Frame dragged(const Frame& start, Zone zone, QPointF movement, const Picture& picture);
// The same middle at another zoom.
Frame zoomed(const Frame& frame, double zoom, const Picture& picture);

} // namespace PinGeometry

} // namespace Kovrel
