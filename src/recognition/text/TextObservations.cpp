#include "recognition/text/TextObservations.h"

#include "recognition/text/TextLayout.h"

#include <QTextBoundaryFinder>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Kovrel {

namespace {

using Observation = TextRecogniser::Observation;
using Candidate = TextRecogniser::Candidate;

constexpr double leastSide = 0.0005;    // of a text whose direction can be told
constexpr double rotatedBoxRatio = 1.3; // area of the box to that of the text, of a visibly rotated line
constexpr double leastCharacterWidth = 0.0001;
constexpr double orientedTilt = 10; // degrees

struct Recognized {
    QString text;
    float confidence = 0;
    Rect box;
    std::optional<OCRQuad> quad;
    double tilt = 0; // degrees, 0 to 90
    std::vector<double> centers;
    bool isUpsideDown = false;
};

double distance(Point a, Point b)
{
    return std::hypot(b.x - a.x, b.y - a.y);
}

// The angle to the nearer of level and upside down.
double tiltOf(const Observation& observation)
{
    const Point from = observation.bottomLeft;
    const Point to = observation.bottomRight;
    const double angle = std::abs(std::atan2(to.y - from.y, to.x - from.x)) * 180 / std::numbers::pi;
    return std::min(angle, std::abs(180 - angle));
}

void addGeometry(const Observation& observation, Recognized& line)
{
    const double baseline = distance(observation.bottomLeft, observation.bottomRight);
    const double side = distance(observation.topLeft, observation.bottomLeft);
    if (baseline <= leastSide || side <= leastSide)
        return;
    line.tilt = tiltOf(observation);
    const Rect& box = observation.boundingBox;
    if (box.width * box.height > rotatedBoxRatio * baseline * side)
        line.quad = OCRQuad{observation.bottomLeft, observation.bottomRight, observation.topLeft};
}

qsizetype graphemeCount(const QString& text)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype count = 0;
    while (finder.toNextBoundary() >= 0)
        ++count;
    return count;
}

qsizetype leadingSpace(const QString& text)
{
    const auto first = std::ranges::find_if_not(text, [](QChar c) { return c.isSpace(); });
    return graphemeCount(text.left(first - text.begin()));
}

using Boxes = std::vector<std::optional<Rect>>;
using Centers = std::vector<std::optional<double>>;

Boxes characterBoxes(const Candidate& candidate, qsizetype first, qsizetype count)
{
    Boxes boxes;
    for (qsizetype at = first; at < first + count; ++at) {
        auto box = candidate.box(at, 1);
        if (box && box->width <= leastCharacterWidth)
            box.reset();
        boxes.push_back(box);
    }
    return boxes;
}

// Characters that share a box, as those of a word may, stand evenly in it.
Centers anchoredCenters(const Boxes& boxes)
{
    Centers centers(boxes.size());
    for (size_t first = 0; first < boxes.size();) {
        size_t end = first + 1;
        while (boxes[first] && end < boxes.size() && boxes[end] == boxes[first])
            ++end;
        for (size_t at = first; boxes[first] && at < end; ++at)
            centers[at] = boxes[first]->minX() + (double(at - first) + 0.5) / double(end - first) * boxes[first]->width;
        first = end;
    }
    return centers;
}

// Between two neighbours that are known they stand evenly; beside one, at its place.
std::vector<double> fillUnanchoredGaps(const Centers& centers)
{
    std::vector<double> filled(centers.size());
    for (size_t first = 0; first < centers.size();) {
        if (centers[first]) {
            filled[first] = *centers[first];
            ++first;
            continue;
        }
        size_t end = first;
        while (end < centers.size() && !centers[end])
            ++end;
        const std::optional<double> left = first > 0 ? centers[first - 1] : std::nullopt;
        const std::optional<double> right = end < centers.size() ? centers[end] : std::nullopt;
        const double from = left.value_or(right.value_or(0));
        const double to = right.value_or(from);
        for (size_t at = first; at < end; ++at)
            filled[at] = from + (to - from) * double(at - first + 1) / double(end - first + 1);
        first = end;
    }
    return filled;
}

std::vector<double> characterCenters(const Candidate& candidate, const QString& text)
{
    const Boxes boxes = characterBoxes(candidate, leadingSpace(candidate.text), graphemeCount(text));
    const Centers centers = anchoredCenters(boxes);
    const bool isAnyAnchored = std::ranges::any_of(centers, [](const auto& center) { return center.has_value(); });
    return isAnyAnchored ? fillUnanchoredGaps(centers) : std::vector<double>();
}

std::vector<Recognized> recognized(const std::vector<Observation>& observations)
{
    std::vector<Recognized> lines;
    for (const Observation& observation : observations) {
        if (observation.candidates.empty())
            continue;
        const Candidate& best = observation.candidates.front();
        Recognized line{.text = best.text.trimmed(), .confidence = best.confidence, .box = observation.boundingBox};
        if (line.text.isEmpty())
            continue;
        line.isUpsideDown = observation.bottomRight.x < observation.bottomLeft.x;
        addGeometry(observation, line);
        if (!line.quad)
            line.centers = characterCenters(best, line.text);
        lines.push_back(std::move(line));
    }
    return lines;
}

bool areOriented(const std::vector<Recognized>& lines)
{
    std::vector<double> tilts;
    for (const Recognized& line : lines)
        tilts.push_back(line.tilt);
    std::ranges::sort(tilts);
    return !tilts.empty() && tilts[tilts.size() / 2] > orientedTilt;
}

// Where most lines stand on their heads, the page is read as it lies when it is turned.
void turnUpsideDown(std::vector<TextFragment>& fragments, QSize pixels)
{
    for (TextFragment& fragment : fragments) {
        fragment.box.x = pixels.width() - fragment.box.maxX();
        fragment.box.y = pixels.height() - fragment.box.maxY();
    }
}

// Rotated lines stay in the recogniser's order, each a column of its own: upright boxes can't tell columns there.
std::vector<TextFragment> fragmentsInOrder(const std::vector<Recognized>& lines, QSize pixels, bool isOriented)
{
    std::vector<TextFragment> fragments;
    for (const Recognized& line : lines) {
        const int index = int(fragments.size());
        fragments.push_back({.text = line.text,
                             .box = {line.box.x * pixels.width(), line.box.y * pixels.height(),
                                     line.box.width * pixels.width(), line.box.height * pixels.height()},
                             .column = isOriented ? index : 0,
                             .sourceIndex = index,
                             .characterCenters = line.centers});
    }
    if (std::ranges::count(lines, true, &Recognized::isUpsideDown) * 2 > std::ssize(lines))
        turnUpsideDown(fragments, pixels);
    if (!isOriented)
        TextLayout::emit(fragments);
    return fragments;
}

} // namespace

OCRResult TextObservations::result(const std::vector<Observation>& observations, QSize pixels)
{
    const std::vector<Recognized> lines = recognized(observations);
    OCRResult result{.isOriented = areOriented(lines)};
    const std::vector<TextFragment> fragments = fragmentsInOrder(lines, pixels, result.isOriented);
    result.fullText = TextLayout::plainText(fragments);
    for (const TextFragment& fragment : fragments) {
        const Recognized& line = lines[size_t(fragment.sourceIndex)];
        result.lines.push_back({line.text, line.confidence, line.box, line.centers, false, line.quad});
    }
    return result;
}

} // namespace Kovrel
