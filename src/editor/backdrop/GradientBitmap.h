#pragma once

#include "editor/backdrop/DitheredImage.h"
#include "editor/backdrop/PreparedGradient.h"

namespace Kovrel {

// What a gradient is on a canvas, in exact colours: worked out at the corners of a grid and interpolated linearly
// between them. Gradients are so smooth that this is less than half a level off. Any thread.
class GradientGrid {
public:
    GradientGrid(const PreparedGradient& gradient, QSize canvas);

    void fill(DitheredImage::Line& line, int y) const;

private:
    int m_width;
    int m_cell;
    std::vector<DitheredImage::Line> m_rows; // the corners, from the top
};

// The pixels of a gradient on a canvas of that size: Format_RGB32, dithered. A null image when memory is short.
QImage gradientBitmap(const PreparedGradient& gradient, QSize size);

} // namespace Kovrel
