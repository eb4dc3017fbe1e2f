#include "platform/recognisers/TextDirection.h"

#include <QPointF>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <numeric>
#include <unordered_map>

namespace Kovrel {

namespace {

constexpr size_t fewestLetters = 12;
constexpr size_t sampleSize = 600;
constexpr int tolerance = 10;           // degrees by which ascenders and descenders tilt a pair of letters
constexpr double widestStep = 2;        // letter heights between neighbours in a line
constexpr double clearMajority = 1.5;   // over the horizontal
constexpr double clearlySharper = 1.05; // than with the lines taken as horizontal
constexpr double step = 0.25;           // degrees
constexpr double leastAngle = 0.6;      // a recogniser copes with less

using Histogram = std::array<double, 180>;

std::vector<QRect> lettersAmong(const std::vector<QRect>& blobs, int letterHeight)
{
    std::vector<QRect> letters;
    for (const QRect& blob : blobs) {
        const int size = std::max(blob.width(), blob.height());
        if (size * 2 >= letterHeight && size <= letterHeight * 3)
            letters.push_back(blob);
    }
    return letters;
}

// The vector to the nearest other letter, and a null one where there is none near.
QPointF toNearest(const std::vector<QRect>& letters, size_t at, int letterHeight)
{
    const QPointF centre = QRectF(letters[at]).center();
    QPointF nearest;
    double shortest = widestStep * widestStep * letterHeight * letterHeight;
    for (size_t other = 0; other < letters.size(); ++other) {
        const QPointF way = QRectF(letters[other]).center() - centre;
        const double length = QPointF::dotProduct(way, way);
        if (other != at && length < shortest && length > 0) {
            shortest = length;
            nearest = way;
        }
    }
    return nearest;
}

Histogram directions(const std::vector<QRect>& letters, int letterHeight)
{
    Histogram histogram{};
    const size_t stride = std::max<size_t>(1, letters.size() / sampleSize);
    for (size_t at = 0; at < letters.size(); at += stride) {
        const QPointF way = toNearest(letters, at, letterHeight);
        if (way.isNull())
            continue;
        const double degrees = std::atan2(way.y(), way.x()) * 180 / std::numbers::pi;
        ++histogram[size_t(std::lround(degrees + 360) % 180)];
    }
    return histogram;
}

double around(const Histogram& histogram, int degrees)
{
    double sum = 0;
    for (int offset = -tolerance; offset <= tolerance; ++offset)
        sum += histogram[size_t((degrees + offset + 360) % 180)] * (tolerance + 1 - std::abs(offset));
    return sum;
}

int mostFrequent(const Histogram& histogram)
{
    int best = 0;
    for (int degrees = 1; degrees < 180; ++degrees)
        if (around(histogram, degrees) > around(histogram, best))
            best = degrees;
    return around(histogram, best) > clearMajority * around(histogram, 0) ? best : 0;
}

// High where many letters stand on few lines.
double sharpness(const std::vector<QRect>& letters, double degrees, double binSize)
{
    const double radians = degrees * std::numbers::pi / 180;
    const QPointF normal(-std::sin(radians), std::cos(radians));
    std::unordered_map<int, int> bins;
    for (const QRect& letter : letters)
        ++bins[int(std::floor(QPointF::dotProduct(QRectF(letter).center(), normal) / binSize))];
    double sum = 0;
    for (const auto& [bin, count] : bins)
        sum += double(count) * count;
    return sum;
}

} // namespace

double TextDirection::of(const std::vector<QRect>& blobs, int letterHeight)
{
    const std::vector<QRect> letters = lettersAmong(blobs, letterHeight);
    if (letters.size() < fewestLetters)
        return 0;
    const Histogram histogram = directions(letters, letterHeight);
    if (std::accumulate(histogram.begin(), histogram.end(), 0.0) < fewestLetters)
        return 0; // letters that stand alone, as the days of a calendar, form no lines
    const double binSize = std::max(1.0, letterHeight / 4.0);
    const int coarse = mostFrequent(histogram);
    double best = coarse;
    double highest = sharpness(letters, best, binSize) * clearlySharper;
    // A quarter is exact. NOLINTNEXTLINE(clang-analyzer-security.FloatLoopCounter)
    for (double degrees = coarse - tolerance; degrees <= coarse + tolerance; degrees += step) {
        const double value = sharpness(letters, degrees, binSize);
        if (value > highest) {
            highest = value;
            best = degrees;
        }
    }
    if (best > 90)
        best -= 180;
    return std::abs(best) < leastAngle ? 0 : best;
}

} // namespace Kovrel
