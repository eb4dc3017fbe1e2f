#pragma once

#include "picking/ColorNotation.h"

#include <QString>

namespace Kovrel {

// A picked colour as style sheets write it. Any thread.
namespace ColorText {

// `hex` is "#RRGGBB": "#2F6BFF", "rgb(47, 107, 255)", "hsl(223, 100%, 59%)", "oklch(57.8% 0.221 263.9)".
QString of(const QString& hex, ColorNotation notation);

// As wide as any colour in this notation.
QString widest(ColorNotation notation);

ColorNotation next(ColorNotation notation);

} // namespace ColorText

} // namespace Kovrel
