#pragma once

#include "history/search/HistoryFacet.h"
#include "history/search/HistoryFacetContext.h"
#include "model/HistoryEntry.h"

#include <vector>

namespace Kovrel {

// The facets that a history has. Stateless; any thread.
namespace HistoryFacetOptions {

struct Option {
    HistoryFacet facet;
    QString title;
    int count = 0;                   // of captures that have it
    std::optional<QString> colorHex; // of a list, #RRGGBB
    bool operator==(const Option&) const = default;
};

// Section by section: kinds in the order of their modes, applications with most captures first, then by name, lists in
// the user's order, also empty ones, and days. All others only where a capture has them.
std::vector<Option> of(const std::vector<HistoryEntry>& entries, const std::vector<HistoryList>& lists,
                       const QDateTime& now);

} // namespace HistoryFacetOptions

} // namespace Kovrel
