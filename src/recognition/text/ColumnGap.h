#pragma once

#include "recognition/text/TextRows.h"

namespace Kovrel {

// A strip that no text crosses, between two columns that are read one after the other.
struct ColumnGap {
    double left = 0; // x of its edges, in pixels
    double right = 0;
    size_t firstRow = 0; // the rows that it reaches through, both included
    size_t lastRow = 0;

    double centre() const { return (left + right) / 2; }

    size_t rowCount() const { return lastRow - firstRow + 1; }
};

// Stateless; any thread.
namespace ColumnGaps {

// The strips of at least `width` pixels that part columns, none sharing a row with another one. Such a strip
// - has text on both sides in two rows, and in half of the rows of the side that has fewer: the two sides of
//   a conversation take turns instead;
// - and has sides that do not keep to the same lines (sidebars, panes), or that are both prose. Sides that keep to
//   the same lines otherwise are the cells of a table, or the labels of a form.
std::vector<ColumnGap> find(const std::vector<TextRow>& rows, double width);

} // namespace ColumnGaps

} // namespace Kovrel
