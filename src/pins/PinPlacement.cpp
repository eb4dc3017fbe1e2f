#include "pins/PinPlacement.h"

#include "ui/ScreenChrome.h"

#include <algorithm>

namespace Kovrel {

namespace {

using PinGeometry::Frame;
using PinGeometry::Picture;

constexpr double step = 24;    // points from one new pin to the next
constexpr int stepsInARow = 8; // then they begin again
constexpr double reach = 60;   // points of a pin that its display always shows

Picture onDisplay(Picture picture, const Display& display)
{
    picture.scale = display.scale;
    return picture;
}

double within(double value, double lowest, double highest)
{
    return std::max(std::min(value, highest), lowest);
}

// Moved so far that its display shows a part of it that can be taken hold of.
QRectF withinReach(QRectF frame, const Display& display)
{
    const QRectF pixels(display.pixelRect);
    const double least = reach * display.scale;
    frame.moveLeft(within(frame.left(), pixels.left() + least - frame.width(), pixels.right() - least));
    frame.moveTop(within(frame.top(), pixels.top(), pixels.bottom() - least));
    return frame;
}

// Moved so far that all of it is there, or its upper left part where it is too large.
QRectF inside(QRectF frame, const Display& display)
{
    const QRectF pixels(display.pixelRect);
    frame.moveLeft(within(frame.left(), pixels.left(), pixels.right() - frame.width()));
    frame.moveTop(within(frame.top(), pixels.top(), pixels.bottom() - frame.height()));
    return frame;
}

} // namespace

PinPlacement::Standing PinPlacement::spawn(const Display& display, const Picture& picture, int pinsBefore)
{
    const QRectF area = display.toPixels(ScreenChrome::anchor(display));
    const double offset = pinsBefore % stepsInARow * step * display.scale;
    const QRectF around(area.translated(offset, offset));
    return {display, PinGeometry::zoomed({around, 1}, picture.spawnZoom, onDisplay(picture, display))};
}

std::optional<Display> PinPlacement::displayOf(const DisplayList& displays, const QRectF& frame)
{
    const Display* display = displayAtPixel(displays, frame.center().toPoint());
    if (!display)
        display = displayNearest(displays, frame.toAlignedRect());
    return display ? std::optional(*display) : std::nullopt;
}

PinPlacement::Place PinPlacement::kept(const Standing& standing)
{
    const QRect pixels = standing.frame.pixels.toRect();
    return {{standing.display.id, pixels.translated(-standing.display.pixelRect.topLeft())}, standing.frame.zoom};
}

std::optional<PinPlacement::Standing> PinPlacement::restored(const DisplayList& displays, const Place& place,
                                                             const Picture& picture)
{
    const Display* own = displayWithID(displays, place.area.displayID);
    if (!own && displays.empty())
        return {};
    const Display& display = own ? *own : displays.front();
    const QSizeF size = PinGeometry::frameSize(picture.size, place.zoom) * display.scale;
    const QRectF there(place.area.pixels.topLeft() + display.pixelRect.topLeft(), size);
    return Standing{display, {own ? withinReach(there, display) : inside(there, display), place.zoom}};
}

PinPlacement::Standing PinPlacement::settled(const Display& display, const Frame& frame, const Picture& picture,
                                             QPointF pointer)
{
    const QSizeF size = PinGeometry::frameSize(picture.size, frame.zoom) * display.scale;
    const double growth = size.width() / frame.pixels.width();
    const QPointF topLeft = pointer - (pointer - frame.pixels.topLeft()) * growth;
    return {display, {QRectF(topLeft, size), frame.zoom}};
}

} // namespace Kovrel
