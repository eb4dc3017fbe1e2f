#pragma once

#include "history/search/HistoryFacetOptions.h"
#include "history/search/HistoryFilter.h"

namespace Kovrel {

// What is offered to somebody who types in the search field. Stateless; any thread.
namespace HistoryFacetSuggestions {

constexpr size_t mostOfSection = 5;

// The options whose titles have the characters of a query in their order (`HistorySearch::subsequence`), best first in
// each section, without those that were chosen. Of an empty query, the first of each section.
std::vector<HistoryFacetOptions::Option>
match(const QString& query, const std::vector<HistoryFacetOptions::Option>& options, const HistoryFilter& excluding);

} // namespace HistoryFacetSuggestions

} // namespace Kovrel
