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

template <class Area>
const Display* holdingMost(const DisplayList& displays, Area areaOn)
{
    const Display* best = primaryDisplay(displays);
    double most = best ? areaOn(*best) : 0;
    for (const Display& display : displays) {
        const double area = areaOn(display);
        if (area > most) {
            best = &display;
            most = area;
        }
    }
    return best;
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

const Display* displayNearest(const DisplayList& displays, const QRect& rootPixels)
{
    return holdingMost(displays, [&](const Display& display) {
        const QRect common = display.pixelRect & rootPixels;
        return double(common.width()) * common.height();
    });
}

Rect flipped(const DisplayList& displays, const Rect& rect)
{
    const Display* primary = primaryDisplay(displays);
    const double height = primary ? primary->frame.height : rect.height;
    return {rect.x, height - rect.maxY(), rect.width, rect.height};
}

QRect rootPixels(const DisplayList& displays, const Rect& rect)
{
    const Display* display = holdingMost(displays, [&](const Display& candidate) {
        const Rect& frame = candidate.frame;
        const double width = std::min(frame.maxX(), rect.maxX()) - std::max(frame.minX(), rect.minX());
        const double height = std::min(frame.maxY(), rect.maxY()) - std::max(frame.minY(), rect.minY());
        return std::max(width, 0.0) * std::max(height, 0.0);
    });
    return display ? display->toPixels(rect) : QRect();
}

} // namespace Kovrel
