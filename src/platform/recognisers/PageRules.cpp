#include "platform/recognisers/PageRules.h"

#include "imaging/InkBlobs.h"

#include <algorithm>

namespace Kovrel {

namespace {

constexpr int leastLength = 4;       // letter heights: longer than the strokes of letters and than dashes
constexpr int mostThickness = 5;     // of them make a letter height
constexpr double mostHanging = 0.08; // of a rule: places from which something hangs down
constexpr int leastSide = 2;         // letter heights, of what remains of a frame's side
constexpr int darkInk = 160;

// The ink with its axes as they are, or exchanged, so that upright rules are found as level ones.
class Ink {
public:
    Ink(QImage& image, bool isTurned)
        : m_pixels(image.bits()),
          m_size(isTurned ? image.size().transposed() : image.size()),
          m_along(isTurned ? image.bytesPerLine() : 1),
          m_across(isTurned ? 1 : image.bytesPerLine())
    {
    }

    QSize size() const { return m_size; }

    uchar& at(int x, int y) { return m_pixels[x * m_along + y * m_across]; }

    // Not what lies outside.
    bool isDark(int x, int y) { return y >= 0 && y < m_size.height() && at(x, y) < darkInk; }

private:
    uchar* m_pixels;
    QSize m_size;
    qsizetype m_along;
    qsizetype m_across;
};

// The runs of a row that are longer than any stroke of a letter.
std::vector<QRect> longRuns(Ink& ink, int y, int least)
{
    std::vector<QRect> runs;
    for (int x = 0; x < ink.size().width(); ++x) {
        const int left = x;
        while (x < ink.size().width() && ink.at(x, y) < darkInk)
            ++x;
        if (x - left >= least)
            runs.push_back({left, y, x - left, 1});
    }
    return runs;
}

// Runs that lie on each other are one rule, or an area when it is too thick.
std::vector<QRect> rulesIn(Ink& ink, int letterHeight)
{
    std::vector<QRect> all;
    size_t lastRow = 0; // the first rule that may reach the row above
    for (int y = 0; y < ink.size().height(); ++y) {
        const size_t row = all.size();
        for (const QRect& run : longRuns(ink, y, leastLength * letterHeight)) {
            const auto above = std::find_if(all.begin() + qsizetype(lastRow), all.end(), [&](const QRect& rule) {
                return rule.bottom() >= y - 1 && rule.left() <= run.right() && run.left() <= rule.right();
            });
            if (above == all.end())
                all.push_back(run);
            else
                *above |= run;
        }
        while (lastRow < row && all[lastRow].bottom() < y)
            ++lastRow;
    }
    const int thickest = std::max(2, letterHeight / mostThickness);
    std::erase_if(all, [&](const QRect& rule) { return rule.height() > thickest; });
    return all;
}

bool isHeldByLetters(Ink& ink, const QRect& rule)
{
    int hanging = 0;
    for (int x = rule.left(); x <= rule.right(); ++x)
        hanging += ink.isDark(x, rule.bottom() + 1) && !ink.isDark(x, rule.top() - 1);
    return hanging > mostHanging * rule.width();
}

// With its fringe, but for where a stroke goes through.
void erase(Ink& ink, const QRect& rule)
{
    const int top = std::max(rule.top() - 1, 0);
    const int bottom = std::min(rule.bottom() + 1, ink.size().height() - 1);
    for (int x = rule.left(); x <= rule.right(); ++x) {
        const bool isDarkAbove = ink.isDark(x, rule.top() - 1);
        const bool isDarkBelow = ink.isDark(x, rule.bottom() + 1);
        if (isDarkAbove && isDarkBelow)
            continue;
        for (int y = isDarkAbove ? rule.top() : top; y <= (isDarkBelow ? rule.bottom() : bottom); ++y)
            ink.at(x, y) = 255;
    }
}

std::vector<QRect> eraseRules(QImage& image, int letterHeight, bool areUpright)
{
    Ink ink(image, areUpright);
    std::vector<QRect> rules = rulesIn(ink, letterHeight);
    if (!areUpright)
        std::erase_if(rules, [&](const QRect& rule) { return isHeldByLetters(ink, rule); });
    for (QRect& rule : rules) {
        erase(ink, rule);
        if (areUpright)
            rule = QRect(rule.y(), rule.x(), rule.height(), rule.width());
    }
    return rules;
}

bool touches(const QRect& box, const std::vector<QRect>& rules)
{
    const QRect wide = box.adjusted(-1, -1, 1, 1);
    return std::ranges::any_of(rules, [&](const QRect& rule) { return wide.intersects(rule); });
}

// What is left of frames: sides too short for a rule, and round corners.
void eraseRemains(QImage& image, const std::vector<QRect>& level, const std::vector<QRect>& upright, int letterHeight)
{
    const InkBlobs blobs(image.size(), [&image](int x, int y) { return image.constScanLine(y)[x] < darkInk; });
    std::vector<bool> isRemains;
    for (const QRect& box : blobs.boxes()) {
        const bool isSide = box.width() * 2 <= letterHeight && box.height() >= leastSide * letterHeight;
        const bool isSmall = std::max(box.width(), box.height()) <= letterHeight;
        isRemains.push_back((isSide && touches(box, level)) ||
                            (isSmall && touches(box, level) && touches(box, upright)));
    }
    for (const InkBlobs::Run& run : blobs.runs())
        if (isRemains[size_t(run.blob)])
            std::fill(image.scanLine(run.y) + run.left, image.scanLine(run.y) + run.end, uchar(255));
}

} // namespace

QImage PageRules::without(QImage image, int letterHeight)
{
    const std::vector<QRect> level = eraseRules(image, letterHeight, false);
    const std::vector<QRect> upright = eraseRules(image, letterHeight, true);
    if (!level.empty())
        eraseRemains(image, level, upright, letterHeight);
    return image;
}

} // namespace Kovrel
