#pragma once

#include "recognition/text/TextFragment.h"

#include <vector>

namespace Kovrel {

// Fragments beside each other.
struct TextRow {
    std::vector<TextFragment*> fragments; // from left to right, at least one

    double top() const;
    double bottom() const;
};

// Stateless; any thread.
namespace TextRows {

// The rows from top to bottom. A fragment is in a row when `share` of its height, or of that of the row's first one,
// lies beside the other, and it is not above one of the row.
std::vector<TextRow> rowBands(std::vector<TextFragment*> fragments, double share);

} // namespace TextRows

} // namespace Kovrel
