#pragma once

#include "history/search/HistoryFacet.h"
#include "history/search/HistoryFacetContext.h"
#include "model/HistoryEntry.h"

#include <functional>
#include <vector>

namespace Kovrel {

// The facets that were chosen, in order. Several of one section: a capture has one of them. Several sections: it has
// one of each.
class HistoryFilter {
public:
    using Predicate = std::function<bool(const HistoryEntry&)>;

    const std::vector<HistoryFacet>& facets() const { return m_facets; }

    bool isEmpty() const { return m_facets.empty(); }

    bool contains(const HistoryFacet& facet) const;

    void toggle(const HistoryFacet& facet);
    void remove(const HistoryFacet& facet);
    // The one that was chosen last; nothing where none is.
    void removeLast();

    bool matches(const HistoryEntry& entry, const HistoryFacetContext& context) const;
    // The same for many captures. Any thread.
    Predicate predicate(const HistoryFacetContext& context) const;

    bool operator==(const HistoryFilter&) const = default;

private:
    std::vector<HistoryFacet> m_facets;
};

} // namespace Kovrel
