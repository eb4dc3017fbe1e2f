#include "history/search/HistoryFacetSuggestions.h"

#include "history/search/HistorySearch.h"
#include "model/text/TextFolding.h"

#include <algorithm>
#include <array>
#include <ranges>

namespace Kovrel {

namespace {

using Option = HistoryFacetOptions::Option;

struct Scored {
    int score = 0;
    Option option;
};

void insert(std::vector<Scored>& section, Scored scored)
{
    section.insert(std::ranges::upper_bound(section, scored.score, std::greater(), &Scored::score), scored);
}

} // namespace

std::vector<Option> HistoryFacetSuggestions::match(const QString& query, const std::vector<Option>& options,
                                                   const HistoryFilter& excluding)
{
    const QString wanted = TextFolding::comparable(query.simplified());
    std::array<std::vector<Scored>, std::variant_size_v<HistoryFacet::Value>> sections;
    for (const Option& option : options) {
        // Of an empty query all are alike, and keep their order.
        const auto score =
            wanted.isEmpty() ? 0 : HistorySearch::subsequence(wanted, TextFolding::comparable(option.title));
        if (score && !excluding.contains(option.facet))
            insert(sections[option.facet.section()], {*score, option});
    }
    std::vector<Option> rows;
    for (const auto& section : sections)
        std::ranges::copy(section | std::views::take(mostOfSection) | std::views::transform(&Scored::option),
                          std::back_inserter(rows));
    return rows;
}

} // namespace Kovrel
