#pragma once

#include "model/Geometry.h"

#include <QRect>
#include <QString>

#include <optional>
#include <vector>

namespace Kovrel {

// One display. Its frame in global points has the native origin (relative to the primary display's) and the native
// size divided by the scale: frames never overlap, but next to a scaled display there are points that no display has.
struct Display {
    quint32 id = 0;
    QString name;      // the output's: "DP-1"
    Rect frame;        // global points; the primary display's lower left corner is 0,0
    Rect visibleFrame; // the frame without panels and docks
    QRect pixelRect;   // on the root window: origin top-left of the root
    double scale = 1;  // device pixels per point
    bool isPrimary = false;

    // Root pixels of a rectangle of global points, rounded to the nearest edges, and back. Exact within this
    // display; beyond it they go on with this display's scale.
    QRect toPixels(const Rect& points) const;
    Rect toPoints(const QRect& rootPixels) const;
    Point toPoint(QPoint rootPixel) const;

    bool operator==(const Display&) const = default;
};

// A snapshot of all displays, the primary one first. Empty when there is none.
using DisplayList = std::vector<Display>;

const Display* primaryDisplay(const DisplayList& displays);
const Display* displayWithID(const DisplayList& displays, quint32 id);
const Display* displayContaining(const DisplayList& displays, Point point);
// The display whose pixels hold this root pixel.
const Display* displayAtPixel(const DisplayList& displays, QPoint rootPixel);
// The display that holds most of a rectangle of root pixels; the primary one where none holds any.
const Display* displayNearest(const DisplayList& displays, const QRect& rootPixels);

// A rectangle of global points counted from the top-left corner of the primary display, y down, as screenshot tools
// take it; and back, which is the same. Without displays the rectangle's own height stands in for the primary's.
Rect flipped(const DisplayList& displays, const Rect& rect);
// The root pixels under a rectangle of global points, by the display that holds most of it. Empty without displays.
QRect rootPixels(const DisplayList& displays, const Rect& rect);

} // namespace Kovrel
