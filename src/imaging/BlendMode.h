#pragma once

#include <QColor>
#include <QPainterPath>

#include <vector>

class QPainter;

namespace Kovrel {

// The ways in which ink mixes with what is below it: laid over it, or as QPainter can't do it, or only roughly.
// W3C Compositing and Blending Level 1 (normal, multiply, color) and Level 2 (plus-lighter).
enum class BlendMode { normal, multiply, color, plusLighter };

// Blends one colour into pictures. Any thread.
namespace Blending {

// A colour with straight or premultiplied components of 0 to 1.
struct Rgba {
    float red = 0;
    float green = 0;
    float blue = 0;
    float alpha = 0;
};

// The premultiplied result of a straight `source` over a premultiplied `backdrop`.
Rgba blended(Rgba backdrop, Rgba source, BlendMode mode);

// Fills what any of the paths covers, in the coordinates of a painter on a QImage of format RGB32 or
// ARGB32_Premultiplied, with antialiased edges. Of the painter's state the transform and a rectangular clip count. Each
// pixel is rounded once. On anything else nothing is drawn.
void fillPaths(QPainter& painter, const std::vector<QPainterPath>& paths, const QColor& color, BlendMode mode);

} // namespace Blending

} // namespace Kovrel
