#pragma once

#include <QRect>

#include <vector>

namespace Kovrel {

// Puts the letters of an upright page together to lines. Stateless; any thread.
namespace TextLines {

struct Line {
    QRect box;              // of its letters
    QRect room;             // with what is above and below letters that it happens not to have
    int letterHeight = 0;   // of its small letters
    bool continues = false; // the line before, behind a gap as between the words of a menu
};

// From above to below. A wide gap, as between the cells of a table, begins a new line. What is too small or too large
// for a letter of the page belongs to none.
std::vector<Line> of(const std::vector<QRect>& blobs, int letterHeight);

} // namespace TextLines

} // namespace Kovrel
