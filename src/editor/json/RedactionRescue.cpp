#include "editor/json/RedactionRescue.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace Kovrel {

namespace {

// No capture is larger, and marks farther away than twice this are not drawn.
constexpr double farthest = 500'000;
// What an entry of a redaction needs at the most; the rest of a longer one is not looked at.
constexpr size_t mostBytes = 4096;

QString beginningOf(std::string_view json)
{
    const std::string_view beginning = json.substr(0, mostBytes);
    return QString::fromUtf8(beginning.data(), qsizetype(beginning.size()));
}

bool isRedaction(Annotation::Kind kind)
{
    using enum Annotation::Kind;
    return kind == blur || kind == pixelate || kind == blackout;
}

// The numbers behind "points", up to the next key.
std::vector<double> coordinatesIn(const QString& json)
{
    static const QRegularExpression list(R"re("points"\s*:\s*([^"]*))re");
    static const QRegularExpression number(R"(-?\d+(\.\d+)?([eE][+-]?\d{1,3})?)");
    std::vector<double> numbers;
    for (const QRegularExpressionMatch& match : number.globalMatch(list.match(json).captured(1)))
        numbers.push_back(match.captured().toDouble());
    return numbers;
}

double reachable(double coordinate)
{
    return std::isnan(coordinate) ? 0 : std::clamp(coordinate, -farthest, farthest);
}

} // namespace

QString RedactionRescue::kindName(std::string_view json)
{
    static const QRegularExpression pattern(R"re("kind"\s*:\s*"(\w+)")re");
    return pattern.match(beginningOf(json)).captured(1);
}

std::optional<Annotation> RedactionRescue::rescued(std::string_view json)
{
    const auto kind = fromRawString<Annotation::Kind>(kindName(json));
    if (!kind || !isRedaction(*kind))
        return std::nullopt;
    const std::vector<double> numbers = coordinatesIn(beginningOf(json));
    if (numbers.size() < 4)
        return std::nullopt;
    const size_t last = numbers.size() / 2 * 2;
    Annotation mark{.kind = *kind,
                    .points = {{numbers[0], numbers[1]}, {numbers[last - 2], numbers[last - 1]}},
                    .colorHex = "#000000",
                    .lineWidth = 1};
    keepWithinReach(mark);
    return mark;
}

void RedactionRescue::keepWithinReach(Annotation& mark)
{
    if (!isRedaction(mark.kind))
        return;
    for (Point& point : mark.points)
        point = {reachable(point.x), reachable(point.y)};
}

} // namespace Kovrel
