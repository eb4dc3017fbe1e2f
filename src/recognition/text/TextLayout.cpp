#include "recognition/text/TextLayout.h"

#include "imaging/Median.h"
#include "recognition/text/ColumnGap.h"

#include <algorithm>

namespace Kovrel {

namespace {

using Fragments = std::vector<TextFragment*>;

// Columns within columns; deeper ones belong to no page.
constexpr int deepest = 16;
// The narrowest strip between columns, in line heights.
constexpr double narrowestGap = 0.5;
// How much of their heights fragments of a row share, and lines of columns beside each other at the least, which keep
// to lines of their own.
constexpr double shareOfRows = 0.5;
constexpr double shareOfColumns = 0.15;

double medianHeight(const std::vector<TextFragment>& fragments)
{
    std::vector<double> heights;
    std::ranges::transform(fragments, std::back_inserter(heights), [](const auto& f) { return f.box.height; });
    return median(std::move(heights));
}

// Numbers the fragments' rows and columns.
class Arrangement {
public:
    explicit Arrangement(double gapWidth) : m_gapWidth(gapWidth) {}

    void arrange(const Fragments& fragments, int depth = 0)
    {
        const auto rows = TextRows::rowBands(fragments, shareOfColumns);
        const auto gaps = depth < deepest ? ColumnGaps::find(rows, m_gapWidth) : std::vector<ColumnGap>();
        size_t next = 0;
        for (const ColumnGap& gap : gaps) {
            appendRows(fragmentsOf(rows, next, gap.firstRow));
            arrangeSides(fragmentsOf(rows, gap.firstRow, gap.lastRow + 1), gap, depth);
            next = gap.lastRow + 1;
        }
        appendRows(fragmentsOf(rows, next, rows.size()));
    }

private:
    static Fragments fragmentsOf(const std::vector<TextRow>& rows, size_t first, size_t end)
    {
        Fragments fragments;
        for (size_t row = first; row < end; ++row)
            fragments.insert(fragments.end(), rows[row].fragments.begin(), rows[row].fragments.end());
        return fragments;
    }

    void arrangeSides(Fragments fragments, const ColumnGap& gap, int depth)
    {
        const auto isLeft = [&](const TextFragment* f) { return f->box.centre().x < gap.centre(); };
        const auto right = std::ranges::partition(fragments, isLeft).begin();
        arrange({fragments.begin(), right}, depth + 1);
        arrange({right, fragments.end()}, depth + 1);
    }

    // Rows that are read as they stand: a column of their own.
    void appendRows(Fragments fragments)
    {
        int number = 0;
        for (const TextRow& row : TextRows::rowBands(std::move(fragments), shareOfRows)) {
            for (TextFragment* fragment : row.fragments) {
                fragment->row = number;
                fragment->column = m_column;
            }
            ++number;
        }
        m_column += number > 0;
    }

    double m_gapWidth;
    int m_column = 0;
};

// Fragments are large: their keys are sorted, and every fragment moves once, which takes a quarter off the time for
// 50,000 of them.
template <class Key>
void sortBy(std::vector<TextFragment>& fragments, Key keyOf)
{
    std::vector<std::pair<std::invoke_result_t<Key, const TextFragment&>, size_t>> order;
    for (size_t i = 0; i < fragments.size(); ++i)
        order.emplace_back(keyOf(fragments[i]), i);
    std::ranges::sort(order);
    std::vector<TextFragment> sorted;
    sorted.reserve(fragments.size());
    for (const auto& [key, place] : order)
        sorted.push_back(std::move(fragments[place]));
    fragments = std::move(sorted);
}

QString separator(const TextFragment& before, const TextFragment& after)
{
    if (before.row != after.row || before.column != after.column)
        return "\n";
    const double gap = after.box.minX() - before.box.maxX();
    return gap >= std::max(before.box.height, after.box.height) ? "\t" : " ";
}

} // namespace

void TextLayout::emit(std::vector<TextFragment>& fragments)
{
    if (fragments.empty())
        return;
    // Neighbours on the page become neighbours in memory.
    sortBy(fragments, [](const TextFragment& f) { return -f.box.centre().y; });
    Fragments all;
    for (TextFragment& fragment : fragments)
        all.push_back(&fragment);
    Arrangement(narrowestGap * medianHeight(fragments)).arrange(all);
    sortBy(fragments, [](const TextFragment& f) { return std::tuple(f.column, f.row, f.box.minX(), f.sourceIndex); });
}

QString TextLayout::plainText(const std::vector<TextFragment>& fragments)
{
    QString text;
    const TextFragment* before = nullptr;
    for (const TextFragment& fragment : fragments) {
        if (before)
            text += separator(*before, fragment);
        text += fragment.text;
        before = &fragment;
    }
    return text;
}

} // namespace Kovrel
