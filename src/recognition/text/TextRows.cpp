#include "recognition/text/TextRows.h"

#include <algorithm>
#include <set>

namespace Kovrel {

namespace {

double overlap(double minOne, double maxOne, double minOther, double maxOther)
{
    return std::min(maxOne, maxOther) - std::max(minOne, minOther);
}

bool areBeside(const Rect& one, const Rect& other, double share)
{
    return overlap(one.minY(), one.maxY(), other.minY(), other.maxY()) >= std::min(one.height, other.height) * share;
}

bool lieAboveEachOther(const Rect& one, const Rect& other)
{
    return overlap(one.minX(), one.maxX(), other.minX(), other.maxX()) > std::min(one.width, other.width) / 2;
}

struct FromTheLeft {
    using is_transparent = void;

    bool operator()(const TextFragment* one, const TextFragment* other) const
    {
        return std::pair(one->box.minX(), one->sourceIndex) < std::pair(other->box.minX(), other->sourceIndex);
    }
};

// A row that is being collected.
class Band {
public:
    bool isEmpty() const { return !m_first; }

    bool takes(const TextFragment& fragment, double share) const
    {
        return !m_first || (areBeside(m_first->box, fragment.box, share) && hasRoomFor(fragment));
    }

    void add(TextFragment* fragment)
    {
        m_first = m_first ? m_first : fragment;
        m_fragments.insert(fragment);
    }

    TextRow row() const { return {{m_fragments.begin(), m_fragments.end()}}; }

private:
    bool hasRoomFor(const TextFragment& fragment) const
    {
        const auto right = m_fragments.lower_bound(&fragment);
        const bool fitsRight = right == m_fragments.end() || !lieAboveEachOther((*right)->box, fragment.box);
        return fitsRight &&
               (right == m_fragments.begin() || !lieAboveEachOther((*std::prev(right))->box, fragment.box));
    }

    const TextFragment* m_first = nullptr;
    std::multiset<TextFragment*, FromTheLeft> m_fragments;
};

} // namespace

double TextRow::top() const
{
    return std::ranges::max(fragments, {}, [](const TextFragment* f) { return f->box.maxY(); })->box.maxY();
}

double TextRow::bottom() const
{
    return std::ranges::min(fragments, {}, [](const TextFragment* f) { return f->box.minY(); })->box.minY();
}

std::vector<TextRow> TextRows::rowBands(std::vector<TextFragment*> fragments, double share)
{
    std::ranges::sort(fragments, {}, [](const TextFragment* f) {
        return std::tuple(-f->box.centre().y, f->box.minX(), f->sourceIndex);
    });
    std::vector<TextRow> rows;
    Band band;
    for (TextFragment* fragment : fragments) {
        if (!band.takes(*fragment, share)) {
            rows.push_back(band.row());
            band = Band();
        }
        band.add(fragment);
    }
    if (!band.isEmpty())
        rows.push_back(band.row());
    return rows;
}

} // namespace Kovrel
