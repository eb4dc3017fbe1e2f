#pragma once

#include <QImage>

namespace Kovrel {

// The straight lines of a page: underlines, frames, the grids of tables. Stateless; any thread.
namespace PageRules {

// The ink (Format_Grayscale8, dark on white) without them. Strokes of letters that cross one stay, and so does the line
// that the letters of a script like Devanagari hang on.
QImage without(QImage ink, int letterHeight);

} // namespace PageRules

} // namespace Kovrel
