#pragma once

#include "imaging/DisjointSets.h"

#include <QRect>
#include <QSize>

#include <vector>

namespace Kovrel {

// The connected blobs of ink on a page, diagonally too. Time grows with the ink: empty ground is only looked at.
class InkBlobs {
public:
    // Pixels beside each other: from `left` to before `end`.
    struct Run {
        int y = 0;
        int left = 0;
        int end = 0;
        int blob = 0; // its number
    };

    // `isInk(x, y)` tells what is ink.
    template <class IsInk>
    InkBlobs(QSize page, IsInk isInk)
    {
        DisjointSets sets;
        size_t above = 0; // the first run of the row above
        for (int y = 0; y < page.height(); ++y) {
            const size_t row = m_runs.size();
            for (int x = 0; x < page.width(); ++x)
                if (isInk(x, y)) {
                    const int left = x;
                    while (x < page.width() && isInk(x, y))
                        ++x;
                    m_runs.push_back({y, left, x, sets.add()});
                }
            join(above, row, sets);
            above = row;
        }
        gather(sets.numbered());
    }

    const std::vector<Run>& runs() const { return m_runs; }

    // Of each blob.
    const std::vector<QRect>& boxes() const { return m_boxes; }

private:
    // The runs from `row` on with those of the row above that touch them.
    void join(size_t above, size_t row, DisjointSets& sets)
    {
        size_t below = row;
        while (above < row && below < m_runs.size()) {
            const Run& upper = m_runs[above];
            const Run& lower = m_runs[below];
            if (upper.left <= lower.end && lower.left <= upper.end)
                sets.unite(upper.blob, lower.blob);
            upper.end < lower.end ? ++above : ++below;
        }
    }

    void gather(const std::vector<int>& numbers)
    {
        for (Run& run : m_runs) {
            const QRect box(run.left, run.y, run.end - run.left, 1);
            run.blob = numbers[size_t(run.blob)];
            if (run.blob == int(m_boxes.size()))
                m_boxes.push_back(box);
            else
                m_boxes[size_t(run.blob)] |= box;
        }
    }

    std::vector<Run> m_runs; // row by row
    std::vector<QRect> m_boxes;
};

} // namespace Kovrel
