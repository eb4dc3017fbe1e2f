#pragma once

#include <QImage>

namespace Kovrel::Bench {

// Every kind and style of mark on a page of text, as they are exported at a scale.
QImage markSheet(double scale, bool isDark);
// Two spotlights that overlap, and what is drawn below and above their shade.
QImage spotlightSheet(double scale, bool isDark);

} // namespace Kovrel::Bench
