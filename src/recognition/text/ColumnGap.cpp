#include "recognition/text/ColumnGap.h"

#include "imaging/Median.h"

#include <algorithm>
#include <limits>
#include <map>

namespace Kovrel {

namespace {

// More strips side by side belong to no page; they would only cost time.
constexpr size_t mostStrips = 64;
// Parts of the larger height by which centres of one line differ at most, when some letters have descenders.
constexpr double sameLine = 0.25;
constexpr double mostRows = 0.7;
// Prose has lines this many times as long as high: some thirty letters.
constexpr double proseLength = 16;
constexpr size_t fewestProseLines = 3;
// Text that goes on below what stands above it, in line heights.
constexpr double widestLineGap = 1.5;

struct Interval {
    double left;
    double right;
};

// What a row leaves free, from the far left to the far right.
std::vector<Interval> freeIntervals(const TextRow& row)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    std::vector<Interval> intervals;
    double left = -infinity;
    for (const TextFragment* fragment : row.fragments) {
        if (fragment->box.minX() > left)
            intervals.push_back({left, fragment->box.minX()});
        left = std::max(left, fragment->box.maxX());
    }
    intervals.push_back({left, infinity});
    return intervals;
}

// Goes down the rows with the strips that are still open.
class Sweep {
public:
    explicit Sweep(double width) : m_width(width) {}

    std::vector<ColumnGap> run(const std::vector<TextRow>& rows)
    {
        for (size_t row = 0; row < rows.size(); ++row)
            pass(row, freeIntervals(rows[row]));
        m_closed.insert(m_closed.end(), m_open.begin(), m_open.end());
        return std::move(m_closed);
    }

private:
    void pass(size_t row, const std::vector<Interval>& intervals)
    {
        std::vector<ColumnGap> next;
        for (const ColumnGap& strip : m_open)
            if (!narrow(strip, row, intervals, next))
                m_closed.push_back(strip);
        for (size_t i = 1; i + 1 < intervals.size() && next.size() < mostStrips; ++i)
            if (isWide(intervals[i]) && !isKnown(intervals[i], next))
                next.push_back({intervals[i].left, intervals[i].right, row, row});
        m_open = std::move(next);
    }

    // Lets a strip go on through what the row leaves free of it; false when that is nothing.
    bool narrow(const ColumnGap& strip, size_t row, const std::vector<Interval>& intervals,
                std::vector<ColumnGap>& next) const
    {
        const size_t before = next.size();
        const auto first = std::ranges::upper_bound(intervals, strip.left, {}, &Interval::right);
        for (auto at = first; at != intervals.end() && at->left < strip.right; ++at) {
            const Interval rest{std::max(strip.left, at->left), std::min(strip.right, at->right)};
            const bool isBetween = at != intervals.begin() && at + 1 != intervals.end();
            if (isWide(rest) && next.size() < mostStrips)
                next.push_back({rest.left, rest.right, strip.firstRow, isBetween ? row : strip.lastRow});
        }
        return next.size() > before;
    }

    bool isWide(const Interval& interval) const { return interval.right - interval.left >= m_width; }

    static bool isKnown(const Interval& interval, const std::vector<ColumnGap>& strips)
    {
        return std::ranges::any_of(
            strips, [&](const ColumnGap& strip) { return strip.left < interval.right && strip.right > interval.left; });
    }

    double m_width;
    std::vector<ColumnGap> m_open;
    std::vector<ColumnGap> m_closed;
};

// What stands on both sides of a strip, right beside it.
class Sides {
public:
    Sides(const ColumnGap& strip, const std::vector<TextRow>& rows)
    {
        for (size_t row = strip.firstRow; row <= strip.lastRow; ++row)
            add(strip, rows[row]);
    }

    bool areColumns() const
    {
        return m_rowsWithBoth >= 2 && 2 * m_rowsWithBoth >= std::min(m_left.size(), m_right.size()) &&
               (!keepToTheSameLines() || areProse());
    }

private:
    void add(const ColumnGap& strip, const TextRow& row)
    {
        const auto right = std::ranges::partition_point(
            row.fragments, [&](const TextFragment* f) { return f->box.centre().x < strip.centre(); });
        const Rect* before = right == row.fragments.begin() ? nullptr : &(*std::prev(right))->box;
        const Rect* after = right == row.fragments.end() ? nullptr : &(*right)->box;
        if (before)
            m_left.push_back(slenderness(*before));
        if (after)
            m_right.push_back(slenderness(*after));
        if (before && after)
            addBoth(*before, *after);
    }

    static double slenderness(const Rect& box) { return box.width / std::max(box.height, 1.0); }

    void addBoth(const Rect& before, const Rect& after)
    {
        ++m_rowsWithBoth;
        m_rowsOfOneLine +=
            std::abs(before.centre().y - after.centre().y) <= sameLine * std::max(before.height, after.height);
    }

    bool keepToTheSameLines() const { return double(m_rowsOfOneLine) >= mostRows * double(m_rowsWithBoth); }

    bool areProse() const
    {
        return m_rowsWithBoth >= fewestProseLines && median(m_left) >= proseLength && median(m_right) >= proseLength;
    }

    std::vector<double> m_left; // slenderness of each
    std::vector<double> m_right;
    size_t m_rowsWithBoth = 0;
    size_t m_rowsOfOneLine = 0;
};

// Takes in rows above or below that have text on one side only, if they go on without a larger gap between lines.
class Extension {
public:
    Extension(const std::vector<TextRow>& rows, double width) : m_rows(rows), m_width(width) {}

    void up(ColumnGap& strip, size_t firstFree) const
    {
        while (strip.firstRow > firstFree && take(strip, strip.firstRow - 1, strip.firstRow))
            --strip.firstRow;
    }

    void down(ColumnGap& strip, size_t endOfFree) const
    {
        while (strip.lastRow + 1 < endOfFree && take(strip, strip.lastRow, strip.lastRow + 1))
            ++strip.lastRow;
    }

private:
    // `upper` and `lower` are neighbours, one of them in the strip's rows already.
    bool take(ColumnGap& strip, size_t upper, size_t lower) const
    {
        const TextRow& row = m_rows[upper < strip.firstRow ? upper : lower];
        const bool isLeft = row.fragments.back()->box.centre().x < strip.centre();
        const bool isRight = row.fragments.front()->box.centre().x > strip.centre();
        const double left = isLeft ? std::max(strip.left, rightEdge(row)) : strip.left;
        const double right = isRight ? std::min(strip.right, leftEdge(row)) : strip.right;
        const double gap = m_rows[upper].bottom() - m_rows[lower].top();
        if (isLeft == isRight || right - left < m_width || gap > widestLineGap * (row.top() - row.bottom()))
            return false;
        strip.left = left;
        strip.right = right;
        return true;
    }

    static double leftEdge(const TextRow& row) { return row.fragments.front()->box.minX(); }

    static double rightEdge(const TextRow& row)
    {
        return std::ranges::max(row.fragments, {}, [](const TextFragment* f) { return f->box.maxX(); })->box.maxX();
    }

    const std::vector<TextRow>& m_rows;
    double m_width;
};

// The longest ones of those that share rows, from top to bottom.
std::vector<ColumnGap> withoutSharedRows(std::vector<ColumnGap> strips)
{
    std::ranges::sort(strips, {},
                      [](const ColumnGap& s) { return std::tuple(-qint64(s.rowCount()), s.firstRow, s.left); });
    std::map<size_t, ColumnGap> taken; // by their last row
    for (const ColumnGap& strip : strips) {
        const auto next = taken.lower_bound(strip.firstRow);
        if (next == taken.end() || next->second.firstRow > strip.lastRow)
            taken.emplace(strip.lastRow, strip);
    }
    std::vector<ColumnGap> result;
    for (const auto& [lastRow, strip] : taken)
        result.push_back(strip);
    return result;
}

} // namespace

std::vector<ColumnGap> ColumnGaps::find(const std::vector<TextRow>& rows, double width)
{
    std::vector<ColumnGap> strips = Sweep(width).run(rows);
    std::erase_if(strips, [&](const ColumnGap& strip) { return !Sides(strip, rows).areColumns(); });
    strips = withoutSharedRows(std::move(strips));
    const Extension extension(rows, width);
    for (size_t i = 0; i < strips.size(); ++i) {
        extension.up(strips[i], i > 0 ? strips[i - 1].lastRow + 1 : 0);
        extension.down(strips[i], i + 1 < strips.size() ? strips[i + 1].firstRow : rows.size());
    }
    return strips;
}

} // namespace Kovrel
