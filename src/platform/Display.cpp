#include "platform/Display.h"

#include <algorithm>
#include <cmath>

namespace Kovrel {

namespace {

template <class Predicate>
const Display* firstWhere(const DisplayList& displays, Predicate predicate)
{
    const auto found = std::find_if(displays.begin(), displays.end(), predicate);
    return found == displays.end() ? nullptr : &*found;
}

} // namespace

QRect Display::toPixels(const Rect& points) const
{
    const auto column = [this](double x) { return pixelRect.x() + int(std::lround((x - frame.minX()) * scale)); };
    const auto row = [this](double y) { return pixelRect.y() + int(std::lround((frame.maxY() - y) * scale)); };
    const QPoint topLeft(column(points.minX()), row(points.maxY()));
    return {topLeft, QSize(column(points.maxX()) - topLeft.x(), row(points.minY()) - topLeft.y())};
}

Rect Display::toPoints(const QRect& rootPixels) const
{
    const Point lowerLeft = toPoint({rootPixels.x(), rootPixels.y() + rootPixels.height()});
    return {lowerLeft.x, lowerLeft.y, rootPixels.width() / scale, rootPixels.height() / scale};
}

Point Display::toPoint(QPoint rootPixel) const
{
    return {frame.minX() + (rootPixel.x() - pixelRect.x()) / scale,
            frame.maxY() - (rootPixel.y() - pixelRect.y()) / scale};
}

const Display* primaryDisplay(const DisplayList& displays)
{
    return firstWhere(displays, [](const Display& display) { return display.isPrimary; });
}

const Display* displayWithID(const DisplayList& displays, quint32 id)
{
    return firstWhere(displays, [id](const Display& display) { return display.id == id; });
}

const Display* displayContaining(const DisplayList& displays, Point point)
{
    return firstWhere(displays, [point](const Display& display) { return display.frame.contains(point); });
}

const Display* displayAtPixel(const DisplayList& displays, QPoint rootPixel)
{
    return firstWhere(displays, [rootPixel](const Display& display) { return display.pixelRect.contains(rootPixel); });
}

} // namespace Kovrel
