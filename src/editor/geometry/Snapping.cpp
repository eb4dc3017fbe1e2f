#include "editor/geometry/Snapping.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace Kovrel {

using Snapping::Guide;
using Snapping::Snapped;

namespace {

// A rectangle along one axis, and how far it reaches along the other.
struct Span {
    double low = 0;
    double high = 0;
    double otherLow = 0;
    double otherHigh = 0;

    double middle() const { return (low + high) / 2; }

    double length() const { return high - low; }

    bool overlaps(const Span& span) const { return otherLow < span.otherHigh && span.otherLow < otherHigh; }
};

enum class Axis { across, up };

Span spanOf(const Rect& rect, Axis axis)
{
    return axis == Axis::across ? Span{rect.minX(), rect.maxX(), rect.minY(), rect.maxY()}
                                : Span{rect.minY(), rect.maxY(), rect.minX(), rect.maxX()};
}

std::vector<Span> spansOf(std::span<const Rect> rects, Axis axis)
{
    std::vector<Span> spans;
    for (const Rect& rect : rects)
        spans.push_back(spanOf(rect, axis));
    return spans;
}

Point pointOf(double along, double other, Axis axis)
{
    return axis == Axis::across ? Point{along, other} : Point{other, along};
}

// One way to snap: where to, and what shows it.
struct Pull {
    double shift = 0;
    std::vector<Guide> guides;
};

// The nearest wins; of equally near ones the first.
class Nearest {
public:
    explicit Nearest(double tolerance) : m_tolerance(tolerance) {}

    template <class Guides>
    void offer(double shift, Guides guides)
    {
        if (std::abs(shift) > m_tolerance || (m_best && std::abs(shift) >= std::abs(m_best->shift)))
            return;
        m_best = Pull{shift, guides()};
    }

    const std::optional<Pull>& best() const { return m_best; }

private:
    double m_tolerance;
    std::optional<Pull> m_best;
};

Guide lineAt(double at, const Span& one, const Span& other, Axis axis)
{
    return {pointOf(at, std::min(one.otherLow, other.otherLow), axis),
            pointOf(at, std::max(one.otherHigh, other.otherHigh), axis)};
}

Guide gapBetween(double low, double high, const Span& one, const Span& other, Axis axis)
{
    const double middle = (std::max(one.otherLow, other.otherLow) + std::min(one.otherHigh, other.otherHigh)) / 2;
    return {pointOf(low, middle, axis), pointOf(high, middle, axis), true};
}

void offerLines(Nearest& nearest, const Span& moving, const Span& other, Axis axis)
{
    const auto offer = [&](double from, double to) {
        nearest.offer(to - from, [&] { return std::vector{lineAt(to, moving, other, axis)}; });
    };
    offer(moving.middle(), other.middle());
    for (const double edge : {moving.low, moving.high})
        for (const double to : {other.low, other.high})
            offer(edge, to);
}

// In the middle between two neighbours.
void offerMiddle(Nearest& nearest, const Span& moving, const Span& low, const Span& high, Axis axis)
{
    const double gap = (high.low - low.high - moving.length()) / 2;
    if (gap <= 0)
        return;
    nearest.offer(low.high + gap - moving.low, [&] {
        return std::vector{gapBetween(low.high, low.high + gap, low, moving, axis),
                           gapBetween(high.low - gap, high.low, moving, high, axis)};
    });
}

// As far from its neighbour as that is from the next one.
void offerSeries(Nearest& nearest, const Span& moving, const Span& low, const Span& high, Axis axis)
{
    const double gap = high.low - low.high;
    if (gap <= 0)
        return;
    const Guide between = gapBetween(low.high, high.low, low, high, axis);
    nearest.offer(high.high + gap - moving.low,
                  [&] { return std::vector{between, gapBetween(high.high, high.high + gap, high, moving, axis)}; });
    nearest.offer(low.low - gap - moving.high,
                  [&] { return std::vector{between, gapBetween(low.low - gap, low.low, moving, low, axis)}; });
}

void offerGaps(Nearest& nearest, const Span& moving, std::vector<Span> others, Axis axis)
{
    std::erase_if(others, [&moving](const Span& other) { return !other.overlaps(moving); });
    std::ranges::sort(others, {}, &Span::low);
    for (size_t index = 0; index + 1 < others.size(); ++index) {
        offerMiddle(nearest, moving, others[index], others[index + 1], axis);
        offerSeries(nearest, moving, others[index], others[index + 1], axis);
    }
}

std::optional<Pull> pull(const Rect& moving, std::span<const Rect> others, const Rect& canvas, double tolerance,
                         Axis axis)
{
    Nearest nearest(tolerance);
    const Span span = spanOf(moving, axis);
    const std::vector<Span> spans = spansOf(others, axis);
    offerLines(nearest, span, spanOf(canvas, axis), axis);
    for (const Span& other : spans)
        offerLines(nearest, span, other, axis);
    offerGaps(nearest, span, spans, axis);
    return nearest.best();
}

Snapped both(const std::optional<Pull>& across, const std::optional<Pull>& up)
{
    Snapped snapped;
    if (across) {
        snapped.shift.width = across->shift;
        snapped.guides = across->guides;
    }
    if (up) {
        snapped.shift.height = up->shift;
        snapped.guides.insert(snapped.guides.end(), up->guides.begin(), up->guides.end());
    }
    return snapped;
}

std::optional<Pull> pullPlace(Point place, std::span<const Rect> others, const Rect& canvas, double tolerance,
                              Axis axis)
{
    Nearest nearest(tolerance);
    const Span at = spanOf({place.x, place.y, 0, 0}, axis);
    const auto offer = [&](const Span& other) {
        for (const double to : {other.low, other.middle(), other.high})
            nearest.offer(to - at.low, [&] { return std::vector{lineAt(to, at, other, axis)}; });
    };
    offer(spanOf(canvas, axis));
    for (const Rect& other : others)
        offer(spanOf(other, axis));
    return nearest.best();
}

} // namespace

Snapped Snapping::moved(const Rect& moving, std::span<const Rect> others, const Rect& canvas, double tolerance)
{
    const auto across = pull(moving, others, canvas, tolerance, Axis::across);
    const auto up = pull(moving, others, canvas, tolerance, Axis::up);
    return both(across, up);
}

Snapped Snapping::dragged(Point place, bool isFreeAcross, bool isFreeUp, std::span<const Rect> others,
                          const Rect& canvas, double tolerance)
{
    const auto along = [&](bool isFree, Axis axis) {
        return isFree ? pullPlace(place, others, canvas, tolerance, axis) : std::nullopt;
    };
    return both(along(isFreeAcross, Axis::across), along(isFreeUp, Axis::up));
}

} // namespace Kovrel
