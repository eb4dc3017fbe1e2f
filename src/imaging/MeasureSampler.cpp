#include "imaging/MeasureSampler.h"

#include "imaging/Median.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace Kovrel {

namespace {

using Axis = MeasureSampler::Axis;

constexpr int bytesOfPixel = 4;
// Longer ramps are gradients. Shadows below cards, which are blurred most, reach over some ten pixels.
constexpr int longestRamp = 12;
// On each side of a ramp so many boundaries tell what its surroundings do.
constexpr int surroundings = 4;
constexpr int strengthOfBorder = 256;
constexpr double sameDistance = 0.0001;

// One row or column.
struct Line {
    const uchar* first;
    qsizetype stride;
    int length;

    const uchar* pixel(int index) const { return first + index * stride; }

    bool hasStep(int at) const { return at >= 1 && at < length; }

    int step(int at) const
    {
        const uchar* after = pixel(at);
        const uchar* before = after - stride;
        return after[0] - before[0] + after[1] - before[1] + after[2] - before[2];
    }
};

// Nothing beside the picture.
std::optional<Line> lineOf(const QImage& pixels, Axis axis, int cross)
{
    const bool isRow = axis == Axis::horizontal;
    if (cross < 0 || cross >= (isRow ? pixels.height() : pixels.width()))
        return std::nullopt;
    if (isRow)
        return Line{pixels.constScanLine(cross), bytesOfPixel, pixels.width()};
    return Line{pixels.constBits() + qsizetype{bytesOfPixel} * cross, pixels.bytesPerLine(), pixels.height()};
}

int largestDifference(const uchar* a, const uchar* b)
{
    return std::max({std::abs(a[0] - b[0]), std::abs(a[1] - b[1]), std::abs(a[2] - b[2])});
}

bool differs(const uchar* pixel, const uchar* reference, int tolerance)
{
    return std::abs(pixel[0] - reference[0]) > tolerance || std::abs(pixel[1] - reference[1]) > tolerance ||
           std::abs(pixel[2] - reference[2]) > tolerance;
}

// Boundaries with steps of one sign, the first and the last of them.
struct Ramp {
    int first;
    int last;

    int count() const { return last - first + 1; }
};

bool sameSign(int a, int b)
{
    return (a > 0 && b > 0) || (a < 0 && b < 0);
}

// One boundary longer than the longest, where it goes on.
Ramp rampThrough(const Line& line, int at)
{
    const int step = line.step(at);
    Ramp ramp{at, at};
    while (line.hasStep(ramp.first - 1) && sameSign(line.step(ramp.first - 1), step) && ramp.count() <= longestRamp)
        --ramp.first;
    while (line.hasStep(ramp.last + 1) && sameSign(line.step(ramp.last + 1), step) && ramp.count() <= longestRamp)
        ++ramp.last;
    return ramp;
}

// How much neighbouring pixels beside a ramp differ: noise, dither, or a gradient that it stands on.
int interiorDelta(const Line& line, const Ramp& ramp)
{
    std::array<int, 2 * surroundings> steps{};
    int count = 0;
    for (int distance = 1; distance <= surroundings; ++distance) {
        for (const int at : {ramp.first - distance, ramp.last + distance}) {
            if (line.hasStep(at))
                steps[count++] = std::abs(line.step(at));
        }
    }
    if (count == 0)
        return 0;
    const auto middle = steps.begin() + (count - 1) / 2;
    std::nth_element(steps.begin(), middle, steps.begin() + count);
    return *middle;
}

// By how much a ramp rises above what its surroundings do on a stretch of its length. Twice as much counts as theirs:
// steps of noise are not all alike.
int rampProminence(const Line& line, const Ramp& ramp)
{
    int rise = 0;
    for (int at = ramp.first; at <= ramp.last; ++at)
        rise += line.step(at);
    return std::abs(rise) - 2 * interiorDelta(line, ramp) * ramp.count();
}

// Where in the ramp the edge is: at its steepest boundary, in the middle of those that are equally steep.
int refineBoundary(const Line& line, const Ramp& ramp)
{
    int steepest = 0;
    int first = ramp.first;
    int last = ramp.first;
    for (int at = ramp.first; at <= ramp.last; ++at) {
        const int step = std::abs(line.step(at));
        if (step > steepest)
            first = at;
        if (step >= steepest)
            last = at;
        steepest = std::max(steepest, step);
    }
    return (first + last) / 2;
}

bool isEdge(const Line& line, int at, int floor)
{
    if (!line.hasStep(at) || line.step(at) == 0)
        return false;
    const Ramp ramp = rampThrough(line, at);
    return ramp.count() <= longestRamp && refineBoundary(line, ramp) == at && rampProminence(line, ramp) > floor;
}

template <typename Ends>
MeasureSampler::Run runThrough(const Line& line, int start, int tolerance, Ends endsAt)
{
    const uchar* reference = line.pixel(start);
    MeasureSampler::Run run{start, start};
    while (run.lower >= 1 && !differs(line.pixel(run.lower - 1), reference, tolerance) && !endsAt(run.lower))
        --run.lower;
    while (run.upper + 1 < line.length && !differs(line.pixel(run.upper + 1), reference, tolerance) &&
           !endsAt(run.upper + 1))
        ++run.upper;
    return run;
}

// An edge that counts: the border of the picture or one in it.
struct Candidate {
    int at;
    double distance;
    int strength;

    bool isBetterThan(const Candidate& other) const
    {
        if (std::abs(distance - other.distance) > sameDistance)
            return distance < other.distance;
        return strength > other.strength;
    }
};

} // namespace

MeasureSampler::MeasureSampler(const QImage& source) : m_pixels(source.convertToFormat(QImage::Format_RGBA8888)) {}

std::optional<MeasureSampler::Run> MeasureSampler::span(int x, int y, Axis axis, int tolerance,
                                                        std::optional<int> edgeFloor) const
{
    if (!m_pixels.valid(x, y))
        return std::nullopt;
    const bool isRow = axis == Axis::horizontal;
    const Line line = *lineOf(m_pixels, axis, isRow ? y : x);
    const int start = isRow ? x : y;
    if (!edgeFloor)
        return runThrough(line, start, tolerance, [](int) { return false; });
    return runThrough(line, start, tolerance, [&](int at) { return isEdge(line, at, *edgeFloor); });
}

std::optional<int> MeasureSampler::signedStep(Axis along, int at, int cross) const
{
    const auto line = lineOf(m_pixels, along, cross);
    return line && line->hasStep(at) ? std::optional(line->step(at)) : std::nullopt;
}

bool MeasureSampler::qualifiesAsEdge(Axis along, int at, int cross, int floor) const
{
    const auto line = lineOf(m_pixels, along, cross);
    return line && isEdge(*line, at, floor);
}

std::optional<int> MeasureSampler::sharpestEdge(Axis along, double near, int cross, double reach, int floor) const
{
    const auto line = lineOf(m_pixels, along, cross);
    if (!line || std::isnan(near - reach) || !(reach >= 0))
        return std::nullopt;
    // Both within the line before they become whole numbers: a place may be anywhere.
    const int first = int(std::clamp<double>(std::ceil(near - reach), 0, line->length + 1));
    const int last = int(std::clamp<double>(std::floor(near + reach), -1, line->length));
    std::optional<Candidate> best;
    for (int at = first; at <= last; ++at) {
        const bool isBorder = at == 0 || at == line->length;
        if (!isBorder && !isEdge(*line, at, floor))
            continue;
        const int strength = isBorder ? strengthOfBorder : largestDifference(line->pixel(at - 1), line->pixel(at));
        const Candidate candidate{at, std::abs(at - near), strength};
        if (!best || candidate.isBetterThan(*best))
            best = candidate;
    }
    return best ? std::optional(best->at) : std::nullopt;
}

} // namespace Kovrel
