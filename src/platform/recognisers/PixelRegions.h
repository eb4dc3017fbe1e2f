#pragma once

#include <QRect>

#include <numeric>
#include <vector>

namespace Kovrel {

// The connected regions of a picture: pixels that `joins(one, other)` says belong together, given neighbours by their
// indices (y * width + x; `one` comes first). Time grows with the number of pixels.
class PixelRegions {
public:
    enum class Neighbours { four, eight };

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
    PixelRegions(QSize size, Neighbours neighbours, Joins joins) : m_width(size.width())
    {
        m_labels.resize(size_t(size.width()) * size_t(size.height()));
        for (int y = 0; y < size.height(); ++y)
            labelRow(y, neighbours == Neighbours::eight, joins);
        gather();
    }

    const std::vector<Region>& regions() const { return m_regions; }

    int regionAt(int pixel) const { return m_labels[size_t(pixel)]; }

private:
    template <class Joins>
    void labelRow(int y, bool diagonally, Joins joins)
    {
        const int start = y * m_width;
        for (int x = 0; x < m_width; ++x) {
            const int pixel = start + x;
            int label = -1;
            const auto meet = [&](int other) {
                if (joins(other, pixel))
                    label = label < 0 ? m_labels[size_t(other)] : united(label, m_labels[size_t(other)]);
            };
            if (x > 0)
                meet(pixel - 1);
            if (y > 0) {
                meet(pixel - m_width);
                if (diagonally && x > 0)
                    meet(pixel - m_width - 1);
                if (diagonally && x + 1 < m_width)
                    meet(pixel - m_width + 1);
            }
            m_labels[size_t(pixel)] = label < 0 ? newLabel() : label;
        }
    }

    int newLabel()
    {
        m_parents.push_back(int(m_parents.size()));
        return m_parents.back();
    }

    int rootOf(int label)
    {
        while (m_parents[size_t(label)] != label)
            label = m_parents[size_t(label)] = m_parents[size_t(m_parents[size_t(label)])];
        return label;
    }

    int united(int one, int other)
    {
        if (one == other)
            return one;
        const int a = rootOf(one);
        const int b = rootOf(other);
        return m_parents[size_t(std::max(a, b))] = std::min(a, b);
    }

    void gather()
    {
        std::vector<int> numbers(m_parents.size(), -1);
        for (size_t pixel = 0; pixel < m_labels.size(); ++pixel) {
            int& number = numbers[size_t(rootOf(m_labels[pixel]))];
            const int x = int(pixel) % m_width;
            const int y = int(pixel) / m_width;
            if (number < 0) {
                number = int(m_regions.size());
                m_regions.push_back({x, y, x, y, 0, int(pixel)});
            }
            Region& region = m_regions[size_t(number)];
            region.left = std::min(region.left, x);
            region.right = std::max(region.right, x);
            region.bottom = y;
            ++region.area;
            m_labels[pixel] = number;
        }
        m_parents = {};
    }

    int m_width;
    std::vector<int> m_labels; // of each pixel; in the end the number of its region
    std::vector<int> m_parents;
    std::vector<Region> m_regions;
};

} // namespace Kovrel
