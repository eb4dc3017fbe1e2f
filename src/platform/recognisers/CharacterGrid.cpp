#include "platform/recognisers/CharacterGrid.h"

#include "imaging/Median.h"

#include <algorithm>
#include <cmath>

namespace Kovrel {

namespace {

using Boxes = std::vector<std::optional<QRectF>>;

constexpr size_t fewestSteps = 8; // that tell of a grid
constexpr double tolerance = 0.2; // of a step
constexpr double mostOff = 0.2;   // of the steps may be off the grid
constexpr double falseGap = 1.5;  // steps; a space makes two

double stepBetween(const QRectF& one, const QRectF& other)
{
    return std::abs(other.center().x() - one.center().x());
}

// From one letter of a word to the next: digits are equally wide in most fonts, and tell nothing.
std::vector<double> steps(const QString& text, const Boxes& boxes)
{
    std::vector<double> all;
    for (size_t at = 1; at < boxes.size(); ++at)
        if (text[qsizetype(at) - 1].isLetter() && text[qsizetype(at)].isLetter() && boxes[at - 1] && boxes[at])
            all.push_back(stepBetween(*boxes[at - 1], *boxes[at]));
    return all;
}

// The step of the grid; none where characters have widths of their own.
std::optional<double> gridStep(const QString& text, const Boxes& boxes)
{
    const std::vector<double> all = steps(text, boxes);
    if (all.size() < fewestSteps)
        return std::nullopt;
    const double step = median(all);
    const auto off = std::ranges::count_if(all, [=](double s) { return std::abs(s - step) > tolerance * step; });
    return double(off) > mostOff * double(all.size()) ? std::nullopt : std::optional(step);
}

// Where there is seldom a space, and marks that are narrow for their place look as if there were one.
bool isAtMark(QChar before, QChar after)
{
    return QStringView(u"([{").contains(before) || QStringView(u"([)];,:").contains(after);
}

} // namespace

void CharacterGrid::closeFalseGaps(QString& text, Boxes& boxes)
{
    if (text.size() != qsizetype(boxes.size()))
        return;
    const auto step = gridStep(text, boxes);
    if (!step)
        return;
    for (size_t at = boxes.size() - 1; at-- > 1;) {
        const bool isGap = text[qsizetype(at)] == u' ' && boxes[at - 1] && boxes[at + 1] &&
                           isAtMark(text[qsizetype(at) - 1], text[qsizetype(at) + 1]);
        if (isGap && stepBetween(*boxes[at - 1], *boxes[at + 1]) < falseGap * *step) {
            text.remove(qsizetype(at), 1);
            boxes.erase(boxes.begin() + qsizetype(at));
        }
    }
}

} // namespace Kovrel
