#pragma once

#include <QColor>

namespace Kovrel {

// WCAG 2.1, "relative luminance", of an sRGB colour: 0 to 1. Its alpha does not count.
double relativeLuminance(const QColor& color);

// WCAG 2.1, "contrast ratio", of two opaque colours: 1 to 21.
double contrast(const QColor& one, const QColor& other);

} // namespace Kovrel
