#pragma once

#include "recognition/text/TextFragment.h"

namespace Kovrel {

// Upright text in the order in which it is read. Stateless; any thread. Takes n log n steps.
namespace TextLayout {

// Gives every fragment its row and column, and sorts them by both: columns of prose, sidebars and panes one after the
// other, each from top to bottom; tables, listings, forms and conversations row by row, each from left to right.
void emit(std::vector<TextFragment>& fragments);

// The text of fragments that are in reading order. A new row or column begins on a new line; in a row, a gap of
// at least the height of a line is a tab, and any other a space.
QString plainText(const std::vector<TextFragment>& fragments);

} // namespace TextLayout

} // namespace Kovrel
