#pragma once

#include "imaging/DisjointSets.h"

#include <QRect>
#include <QSize>

#include <algorithm>
#include <vector>

namespace Kovrel {

// The connected regions of a picture: neighbours above and beside each other that `joins(one, other)` says belong
// together, given by their indices (y * width + x; `one` comes first). Time grows with the number of pixels.
class PixelRegions {
public:
    struct Region {
        int left = 0;
        int top = 0;
        int right = 0;
        int bottom = 0;
        int area = 0;
        int firstPixel = 0;

        int width() const { return right - left + 1; }

        int height() const { return bottom - top + 1; }

        QRect box() const { return {QPoint(left, top), QPoint(right, bottom)}; }
    };

    template <class Joins>
    PixelRegions(QSize size, Joins joins) : m_width(size.width())
    {
        m_labels.resize(size_t(size.width()) * size_t(size.height()));
        DisjointSets sets;
        for (int y = 0; y < size.height(); ++y)
            labelRow(y, joins, sets);
        gather(size.height(), sets.numbered());
    }

    const std::vector<Region>& regions() const { return m_regions; }

    int regionAt(int pixel) const { return m_labels[size_t(pixel)]; }

private:
    template <class Joins>
    void labelRow(int y, Joins joins, DisjointSets& sets)
    {
        const int start = y * m_width;
        for (int x = 0; x < m_width; ++x) {
            const int pixel = start + x;
            int label = x > 0 && joins(pixel - 1, pixel) ? m_labels[size_t(pixel - 1)] : -1;
            if (const int above = pixel - m_width; y > 0 && joins(above, pixel))
                label = label < 0 ? m_labels[size_t(above)] : sets.unite(label, m_labels[size_t(above)]);
            m_labels[size_t(pixel)] = label < 0 ? sets.add() : label;
        }
    }

    void gather(int height, const std::vector<int>& numbers)
    {
        int pixel = 0;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < m_width; ++x, ++pixel) {
                int& label = m_labels[size_t(pixel)];
                label = numbers[size_t(label)];
                if (label == int(m_regions.size()))
                    m_regions.push_back({x, y, x, y, 0, pixel});
                Region& region = m_regions[size_t(label)];
                region.left = std::min(region.left, x);
                region.right = std::max(region.right, x);
                region.bottom = y;
                ++region.area;
            }
    }

    int m_width;
    std::vector<int> m_labels; // of each pixel; in the end the number of its region
    std::vector<Region> m_regions;
};

} // namespace Kovrel
