#pragma once

#include <QRect>

namespace Kovrel {

// Global screen points: double precision, origin at the bottom-left of the primary display, y up.
// (Rectangles of device pixels are QRect, with their origin top-left and y down.)
struct Point {
    double x = 0;
    double y = 0;
    bool operator==(const Point&) const = default;
};

struct Size {
    double width = 0;
    double height = 0;
    bool operator==(const Size&) const = default;
};

struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    double minX() const { return x; }

    double minY() const { return y; }

    double maxX() const { return x + width; }

    double maxY() const { return y + height; }

    Point centre() const { return {x + width / 2, y + height / 2}; }

    bool isEmpty() const { return !(width > 0 && height > 0); }

    // Half open: the right and upper edges belong to the neighbour.
    bool contains(Point point) const
    {
        return point.x >= minX() && point.x < maxX() && point.y >= minY() && point.y < maxY();
    }

    bool operator==(const Rect&) const = default;
};

// A rectangle that must outlive a change of screens: pixels relative to the top-left pixel of one display.
// It may reach beyond that display when it was selected across several.
struct DisplayArea {
    quint32 displayID = 0;
    QRect pixels;
    bool operator==(const DisplayArea&) const = default;
};

} // namespace Kovrel
