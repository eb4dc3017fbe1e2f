#include "platform/recognisers/CharacterOrder.h"

#include <algorithm>

namespace Kovrel {

namespace {

enum class Reads { leftToRight, rightToLeft, both };

Reads directionOf(const QString& text)
{
    bool hasLeft = false;
    bool hasRight = false;
    for (const QChar character : text) {
        hasLeft |= character.direction() == QChar::DirL;
        hasRight |= character.direction() == QChar::DirR || character.direction() == QChar::DirAL;
    }
    if (hasLeft && hasRight)
        return Reads::both;
    return hasRight ? Reads::rightToLeft : Reads::leftToRight;
}

// The longest series of them that only rises, as their indexes (Fredman's patience method, n log n).
std::vector<size_t> longestRise(const std::vector<double>& values)
{
    std::vector<size_t> ends; // of the series of each length, the one with the lowest value
    std::vector<std::optional<size_t>> before(values.size());
    for (size_t index = 0; index < values.size(); ++index) {
        const auto place = std::ranges::upper_bound(ends, values[index], {}, [&](size_t end) { return values[end]; });
        if (place != ends.begin())
            before[index] = *std::prev(place);
        if (place == ends.end())
            ends.push_back(index);
        else
            *place = index;
    }
    std::vector<size_t> rise;
    for (auto index = ends.empty() ? std::nullopt : std::optional(ends.back()); index; index = before[*index])
        rise.push_back(*index);
    std::ranges::reverse(rise);
    return rise;
}

} // namespace

void CharacterOrder::dropStrays(const QString& text, std::vector<std::optional<QRectF>>& boxes)
{
    const Reads direction = directionOf(text);
    if (direction == Reads::both)
        return;
    std::vector<size_t> placed;
    std::vector<double> centers;
    for (size_t index = 0; index < boxes.size(); ++index) {
        if (!boxes[index])
            continue;
        placed.push_back(index);
        const double center = boxes[index]->center().x();
        centers.push_back(direction == Reads::leftToRight ? center : -center);
    }
    std::vector<std::optional<QRectF>> kept(boxes.size());
    for (const size_t index : longestRise(centers))
        kept[placed[index]] = boxes[placed[index]];
    boxes = std::move(kept);
}

} // namespace Kovrel
