#include "editor/backdrop/GradientBitmap.h"

#include <algorithm>

namespace Kovrel {

using DitheredImage::Line;

namespace {

// Of a cell. Small canvases bend more from pixel to pixel, so they have smaller ones.
constexpr int longestCell = 16;
constexpr int cellsToSide = 96;

int cellOf(QSize canvas)
{
    return std::clamp(std::min(canvas.width(), canvas.height()) / cellsToSide, 1, longestCell);
}

} // namespace

GradientGrid::GradientGrid(const PreparedGradient& gradient, QSize canvas)
    : m_width(canvas.width()), m_cell(cellOf(canvas))
{
    const int columns = canvas.width() / m_cell + 2;
    const int rows = canvas.height() / m_cell + 2;
    for (int row = 0; row < rows; ++row) {
        Line& line = m_rows.emplace_back();
        for (int column = 0; column < columns; ++column) {
            // Of the middle of the pixel at the corner.
            const double x = (column * m_cell + 0.5) / canvas.width();
            const double y = (row * m_cell + 0.5) / canvas.height();
            const auto color = gradient.colorAt(x, y, canvas);
            for (size_t channel = 0; channel < line.size(); ++channel)
                line[channel].push_back(color[channel]);
        }
    }
}

void GradientGrid::fill(Line& line, int y) const
{
    const Line& upper = m_rows[size_t(y / m_cell)];
    const Line& lower = m_rows[size_t(y / m_cell) + 1];
    const float down = float(y % m_cell) / float(m_cell);
    for (size_t channel = 0; channel < line.size(); ++channel) {
        const auto corner = [&](int column) {
            const float above = upper[channel][size_t(column)];
            return above + down * (lower[channel][size_t(column)] - above);
        };
        float left = corner(0);
        for (int x = 0; x < m_width; x += m_cell) {
            const float right = corner(x / m_cell + 1);
            const float step = (right - left) / float(m_cell);
            float* const values = line[channel].data() + x;
            const int count = std::min(m_cell, m_width - x);
            for (int index = 0; index < count; ++index)
                values[index] = left + step * float(index);
            left = right;
        }
    }
}

QImage gradientBitmap(const PreparedGradient& gradient, QSize size)
{
    const GradientGrid grid(gradient, size);
    return DitheredImage::painted(size, [&](Line& line, int y) { grid.fill(line, y); });
}

} // namespace Kovrel
