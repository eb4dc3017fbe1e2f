#include "editor/geometry/MarkHandles.h"

#include "editor/geometry/MarkFrame.h"
#include "editor/marks/ArrowInk.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Kovrel {

using MarkHandles::Manner;
using MarkHandles::Place;

namespace {

using Kind = Annotation::Kind;

constexpr double lineStep = std::numbers::pi / 4;
constexpr double turnStep = std::numbers::pi / 12;
constexpr double leastSide = 1;
constexpr double smallestTip = 0.4;
constexpr double largestTip = 4;
constexpr double leastTextWidth = 2; // em

constexpr MarkHandle corners[] = {MarkHandle::upperLeft, MarkHandle::upperRight, MarkHandle::lowerLeft,
                                  MarkHandle::lowerRight};
constexpr MarkHandle upperAndLower[] = {MarkHandle::upper, MarkHandle::lower};
constexpr MarkHandle sides[] = {MarkHandle::left, MarkHandle::right};

double length(Point from, Point to)
{
    return std::hypot(to.x - from.x, to.y - from.y);
}

bool isSegment(const Annotation& mark)
{
    return mark.kind == Kind::arrow || mark.kind == Kind::line || mark.kind == Kind::measure;
}

Point onFrame(const Annotation& mark, MarkHandle handle)
{
    const Point towards = MarkHandles::direction(handle);
    return MarkFrame::place(mark, (1 + towards.x) / 2, (1 + towards.y) / 2);
}

template <class Handles>
void addOnFrame(std::vector<Place>& places, const Annotation& mark, const Handles& handles)
{
    for (const MarkHandle handle : handles)
        places.push_back({handle, onFrame(mark, handle)});
}

Point tipPlace(const Annotation& arrow)
{
    return ArrowInk::headCorner(arrow.points.front(), arrow.points.back(), arrow.curveControl, arrow.lineWidth,
                                arrow.tipScale);
}

std::vector<Place> ofSegment(const Annotation& mark)
{
    std::vector<Place> places{{MarkHandle::start, mark.points.front()}, {MarkHandle::end, mark.points.back()}};
    if (mark.kind != Kind::measure)
        places.push_back({MarkHandle::curve, *mark.segmentMidpoint()});
    if (mark.kind == Kind::arrow)
        places.push_back({MarkHandle::tip, tipPlace(mark)});
    return places;
}

std::vector<Place> ofBox(const Annotation& mark, double turnDistance)
{
    std::vector<Place> places;
    addOnFrame(places, mark, corners);
    const bool isOfPoints = mark.kind == Kind::pen || mark.kind == Kind::highlighter || mark.kind == Kind::step;
    if (!isOfPoints)
        addOnFrame(places, mark, sides);
    if (!isOfPoints && mark.kind != Kind::text)
        addOnFrame(places, mark, upperAndLower);
    if (mark.isRotatable()) {
        const Point middle = onFrame(mark, MarkHandle::upper);
        const Point above{middle.x, middle.y + turnDistance};
        places.push_back({MarkHandle::turn, MarkFrame::turned(above, middle, mark.rotation)});
    }
    return places;
}

// The curve keeps its bend when one of its ends moves: it is turned and stretched with the line between the ends.
Point carried(Point control, Point from, Point to, Point newFrom, Point newTo)
{
    const double square = std::pow(length(from, to), 2);
    if (square == 0)
        return {control.x + newTo.x - to.x, control.y + newTo.y - to.y};
    const Point chord{to.x - from.x, to.y - from.y};
    const Point arm{control.x - from.x, control.y - from.y};
    const double along = (arm.x * chord.x + arm.y * chord.y) / square;
    const double aside = (arm.y * chord.x - arm.x * chord.y) / square;
    const Point newChord{newTo.x - newFrom.x, newTo.y - newFrom.y};
    return {newFrom.x + along * newChord.x - aside * newChord.y, newFrom.y + along * newChord.y + aside * newChord.x};
}

Annotation withEnds(Annotation mark, Point from, Point to)
{
    if (mark.curveControl)
        mark.curveControl = carried(*mark.curveControl, mark.points.front(), mark.points.back(), from, to);
    mark.points = {from, to};
    return mark;
}

Annotation endDragged(const Annotation& start, bool isStart, Point to, const Manner& manner)
{
    const Point moved = isStart ? start.points.front() : start.points.back();
    const Point other = isStart ? start.points.back() : start.points.front();
    const Point place = manner.keepsShape ? MarkHandles::atWholeAngle(other, to, lineStep) : to;
    const Point opposite =
        manner.fromCentre ? Point{other.x - (place.x - moved.x), other.y - (place.y - moved.y)} : other;
    return isStart ? withEnds(start, place, opposite) : withEnds(start, opposite, place);
}

// The middle of the curve goes where the handle goes. Nearly straight is straight.
Annotation bent(Annotation mark, Point through, double tolerance)
{
    const Point from = mark.points.front();
    const Point to = mark.points.back();
    const double chord = length(from, to);
    const double away =
        chord == 0 ? 0
                   : std::abs((through.x - from.x) * (to.y - from.y) - (through.y - from.y) * (to.x - from.x)) / chord;
    if (away <= tolerance)
        mark.curveControl.reset();
    else
        mark.curveControl = Point{2 * through.x - (from.x + to.x) / 2, 2 * through.y - (from.y + to.y) / 2};
    return mark;
}

// Heads grow with the distance of their corner from the tip.
Annotation tipDragged(Annotation arrow, Point to)
{
    const Point tip = arrow.points.back();
    const double before = length(tip, tipPlace(arrow));
    if (before > 0)
        arrow.tipScale = std::clamp(arrow.tipScale * length(tip, to) / before, smallestTip, largestTip);
    return arrow;
}

Annotation turnedTo(Annotation mark, Point to, bool inSteps)
{
    const Point centre = MarkFrame::frame(mark).centre();
    const double angle = std::atan2(to.y - centre.y, to.x - centre.x) - std::numbers::pi / 2;
    mark.rotation = std::remainder(inSteps ? std::round(angle / turnStep) * turnStep : angle, 2 * std::numbers::pi);
    return mark;
}

struct Stretch {
    bool keepsShape = false;
    bool fromCentre = false;
    bool mayTurnOver = true; // dragged over the opposite side, it lies beyond it
};

// Along one axis: from the side that stays to the handle. A handle in the middle moves nothing.
struct Side {
    double from = 0;
    double length = 0; // signed

    double least() const { return std::min(from, from + length); }
};

Side sideOf(double at, double size, double direction, double to, const Stretch& stretch)
{
    if (direction == 0)
        return {at, size};
    const double fixed = stretch.fromCentre ? at + size / 2 : direction > 0 ? at : at + size;
    double reach = to - fixed;
    if (std::abs(reach) < leastSide || (!stretch.mayTurnOver && reach * direction < 0))
        reach = direction * leastSide;
    return stretch.fromCentre ? Side{fixed - reach, 2 * reach} : Side{fixed, reach};
}

// Both sides as long as the longer one asks for.
void keepShape(Side& across, Side& up, const Rect& frame, Point direction)
{
    if (frame.width <= 0 || frame.height <= 0)
        return;
    const double wider = std::abs(across.length) / frame.width;
    const double higher = std::abs(up.length) / frame.height;
    const double factor = direction.x == 0 ? higher : direction.y == 0 ? wider : std::max(wider, higher);
    const auto grow = [factor](Side& side, double before, bool isFree) {
        const double length = std::copysign(before * factor, side.length);
        if (isFree)
            side.from -= (length - side.length) / 2; // about its middle
        side.length = length;
    };
    grow(across, frame.width, direction.x == 0);
    grow(up, frame.height, direction.y == 0);
}

Rect frameDragged(const Rect& frame, MarkHandle handle, Point to, const Stretch& stretch)
{
    const Point direction = MarkHandles::direction(handle);
    Side across = sideOf(frame.x, frame.width, direction.x, to.x, stretch);
    Side up = sideOf(frame.y, frame.height, direction.y, to.y, stretch);
    if (stretch.keepsShape)
        keepShape(across, up, frame, direction);
    if (stretch.keepsShape && stretch.fromCentre) {
        across.from = frame.centre().x - across.length / 2;
        up.from = frame.centre().y - up.length / 2;
    }
    return {across.least(), up.least(), std::abs(across.length), std::abs(up.length)};
}

// The sides of a label say where its lines end.
Annotation labelWidened(Annotation label, const Rect& to)
{
    const Rect plate = label.textRect();
    const double width = std::max(to.width, leastTextWidth * label.fontSize);
    label.points = {{plate.minX(), plate.minY()}, {plate.minX() + width, plate.maxY()}};
    label.wrapCap.reset();
    return label;
}

bool hasOwnShape(const Annotation& mark)
{
    return mark.kind == Kind::text || mark.kind == Kind::step;
}

Stretch stretchOf(const Annotation& mark, bool isWidened, const Manner& manner)
{
    // Pictures keep their shape unless they are told not to, all others only when they are.
    const bool isAsked = (mark.kind == Kind::image) != manner.keepsShape;
    return {.keepsShape = !isWidened && (hasOwnShape(mark) || isAsked),
            .fromCentre = manner.fromCentre,
            .mayTurnOver = !hasOwnShape(mark)};
}

Point at(const Rect& rect, Point share)
{
    return {rect.x + share.x * rect.width, rect.y + share.y * rect.height};
}

Annotation boxDragged(const Annotation& start, MarkHandle handle, Point to, const Manner& manner)
{
    const Rect frame = MarkFrame::frame(start);
    const double rotation = start.isRotatable() ? start.rotation : 0;
    const Point direction = MarkHandles::direction(handle);
    const bool isWidened = start.kind == Kind::text && direction.y == 0;
    const Point upright = MarkFrame::turned(to, frame.centre(), -rotation);
    const Rect target = frameDragged(frame, handle, upright, stretchOf(start, isWidened, manner));
    Annotation mark = isWidened ? labelWidened(start, target) : MarkFrame::stretched(start, target);
    // What is opposite stays, wherever a label has its lines now and whatever the frame turns about.
    const Rect now = MarkFrame::frame(mark);
    const Point share = manner.fromCentre ? Point{0.5, 0.5} : Point{(1 - direction.x) / 2, (1 - direction.y) / 2};
    const Point opposite{share.x, isWidened ? 1 : share.y};
    const Point was = MarkFrame::turned(at(frame, opposite), frame.centre(), rotation);
    const Point is = MarkFrame::turned(at(hasOwnShape(mark) ? now : frame, opposite), now.centre(), rotation);
    return MarkFrame::translated(std::move(mark), {was.x - is.x, was.y - is.y});
}

} // namespace

std::vector<Place> MarkHandles::of(const Annotation& mark, double turnDistance)
{
    if (mark.points.empty())
        return {};
    return isSegment(mark) ? ofSegment(mark) : ofBox(mark, turnDistance);
}

std::optional<MarkHandle> MarkHandles::at(const Annotation& mark, Point point, double tolerance, double turnDistance)
{
    const std::vector<Place> places = of(mark, turnDistance);
    const auto away = [point](const Place& place) { return length(place.at, point); };
    const auto nearest = std::ranges::min_element(places, {}, away);
    if (nearest == places.end() || away(*nearest) > tolerance)
        return std::nullopt;
    return nearest->handle;
}

Annotation MarkHandles::dragged(const Annotation& start, MarkHandle handle, Point to, const Manner& manner)
{
    switch (handle) {
    case MarkHandle::start:
    case MarkHandle::end:
        return endDragged(start, handle == MarkHandle::start, to, manner);
    case MarkHandle::curve:
        return bent(start, to, manner.tolerance);
    case MarkHandle::tip:
        return tipDragged(start, to);
    case MarkHandle::turn:
        return turnedTo(start, to, manner.keepsShape);
    default:
        return boxDragged(start, handle, to, manner);
    }
}

MarkHandles::GroupStretch MarkHandles::groupStretch(const Rect& bounds, MarkHandle corner, Point to, bool fromCentre)
{
    const Point direction = MarkHandles::direction(corner);
    const Point share = fromCentre ? Point{0.5, 0.5} : Point{(1 - direction.x) / 2, (1 - direction.y) / 2};
    const Rect target = frameDragged(bounds, corner, to, {true, fromCentre, false});
    const double before = std::max(bounds.width, bounds.height);
    return {::Kovrel::at(bounds, share), before > 0 ? std::max(target.width, target.height) / before : 1};
}

Point MarkHandles::direction(MarkHandle handle)
{
    switch (handle) {
    case MarkHandle::lowerLeft:
        return {-1, -1};
    case MarkHandle::lower:
        return {0, -1};
    case MarkHandle::lowerRight:
        return {1, -1};
    case MarkHandle::left:
        return {-1, 0};
    case MarkHandle::right:
        return {1, 0};
    case MarkHandle::upperLeft:
        return {-1, 1};
    case MarkHandle::upper:
        return {0, 1};
    case MarkHandle::upperRight:
        return {1, 1};
    default:
        return {};
    }
}

Point MarkHandles::atWholeAngle(Point from, Point to, double step)
{
    const double angle = std::round(std::atan2(to.y - from.y, to.x - from.x) / step) * step;
    const double along = (to.x - from.x) * std::cos(angle) + (to.y - from.y) * std::sin(angle);
    return {from.x + along * std::cos(angle), from.y + along * std::sin(angle)};
}

} // namespace Kovrel
