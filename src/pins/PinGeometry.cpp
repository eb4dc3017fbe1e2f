#include "pins/PinGeometry.h"

#include <algorithm>
#include <cmath>

namespace Kovrel {

namespace {

using namespace PinGeometry;

constexpr double leastScale = 0.0001;
constexpr double usableShare = 0.6;
constexpr double cornerSide = 18;
constexpr double edgeBand = 10;
constexpr double buttonSide = 28;
constexpr double buttonInset = 21; // from the edges to its middle
constexpr double buttonStep = 30;
constexpr double mostPixels = 16000; // along a side; windows end at twice that

double leastZoom(const Picture& picture)
{
    const QSizeF& size = picture.size;
    return std::min(picture.spawnZoom, std::max(smallest.width() / size.width(), smallest.height() / size.height()));
}

double mostZoom(const Picture& picture)
{
    return std::max(1.0, mostPixels / (std::max(picture.size.width(), picture.size.height()) * picture.scale));
}

bool isAny(Zone zone, std::initializer_list<Zone> zones)
{
    return std::ranges::find(zones, zone) != zones.end();
}

bool isLeft(Zone zone)
{
    return isAny(zone, {Zone::left, Zone::topLeft, Zone::bottomLeft});
}

bool isTop(Zone zone)
{
    return isAny(zone, {Zone::top, Zone::topLeft, Zone::topRight});
}

// How many times as large the frame becomes; a corner follows the direction in which it is moved further.
double growth(const QRectF& frame, Zone zone, QPointF movement)
{
    const double across = 1 + (isLeft(zone) ? -movement.x() : movement.x()) / frame.width();
    const double down = 1 + (isTop(zone) ? -movement.y() : movement.y()) / frame.height();
    if (isAny(zone, {Zone::left, Zone::right}))
        return across;
    if (isAny(zone, {Zone::top, Zone::bottom}))
        return down;
    return std::abs(across - 1) > std::abs(down - 1) ? across : down;
}

QSizeF sizeInPixels(const Picture& picture, double zoom)
{
    return frameSize(picture.size, zoom) * picture.scale;
}

} // namespace

QSizeF PinGeometry::pointSize(QSize pixels, double scale)
{
    return QSizeF(pixels) / std::max(scale, leastScale);
}

double PinGeometry::spawnZoom(QSizeF picture, QSizeF usable)
{
    return std::min({1.0, usable.width() * usableShare / std::max(picture.width(), 1.0),
                     usable.height() * usableShare / std::max(picture.height(), 1.0)});
}

QSizeF PinGeometry::frameSize(QSizeF picture, double zoom)
{
    return (picture * zoom).expandedTo(smallest);
}

QSizeF PinGeometry::pictureWithin(QSizeF frame, QSizeF picture, double zoom)
{
    const QSizeF whole = frameSize(picture, zoom);
    const QSizeF shown = picture * zoom;
    return {frame.width() * shown.width() / whole.width(), frame.height() * shown.height() / whole.height()};
}

QSizeF PinGeometry::spawnSize(QSize pixels, double scale, QSizeF usable)
{
    const QSizeF picture = pointSize(pixels, scale);
    return frameSize(picture, spawnZoom(picture, usable));
}

Zone PinGeometry::zoneAt(QSizeF pin, QPointF point)
{
    const double right = pin.width() - point.x();
    const double bottom = pin.height() - point.y();
    if (point.x() < cornerSide && point.y() < cornerSide)
        return Zone::topLeft;
    if (right < cornerSide && point.y() < cornerSide)
        return Zone::topRight;
    if (point.x() < cornerSide && bottom < cornerSide)
        return Zone::bottomLeft;
    if (right < cornerSide && bottom < cornerSide)
        return Zone::bottomRight;
    if (point.x() < edgeBand)
        return Zone::left;
    if (right < edgeBand)
        return Zone::right;
    if (bottom < edgeBand)
        return Zone::bottom;
    return point.y() < edgeBand ? Zone::top : Zone::none;
}

QRectF PinGeometry::buttonSquare(QSizeF pin, Button button)
{
    const double fromRight = button == Button::edit ? buttonInset + buttonStep : buttonInset;
    const double x = button == Button::close ? buttonInset : pin.width() - fromRight;
    return {x - buttonSide / 2, buttonInset - buttonSide / 2, buttonSide, buttonSide};
}

Button PinGeometry::buttonAt(QSizeF pin, QPointF point)
{
    for (const Button button : {Button::close, Button::unpin, Button::edit})
        if (buttonSquare(pin, button).contains(point))
            return button;
    return Button::none;
}

Frame PinGeometry::dragged(const Frame& start, Zone zone, QPointF movement, const Picture& picture)
{
    if (zone == Zone::none)
        return {start.pixels.translated(movement), start.zoom};
    const double wanted = start.zoom * growth(start.pixels, zone, movement);
    const double zoom = std::clamp(wanted, leastZoom(picture), mostZoom(picture));
    QRectF pixels(start.pixels.topLeft(), sizeInPixels(picture, zoom));
    if (isLeft(zone))
        pixels.moveRight(start.pixels.right());
    if (isTop(zone))
        pixels.moveBottom(start.pixels.bottom());
    return {pixels, zoom};
}

Frame PinGeometry::zoomed(const Frame& frame, double zoom, const Picture& picture)
{
    QRectF pixels(QPointF(), sizeInPixels(picture, zoom));
    pixels.moveCenter(frame.pixels.center());
    return {pixels, zoom};
}

} // namespace Kovrel
