#pragma once

#include "history/search/HistoryFilter.h"
#include "history/search/HistorySearch.h"
#include "history/search/HistorySearchTable.h"
#include "history/search/SearchPlace.h"
#include "history/search/SearchTerm.h"

#include <map>
#include <memory>
#include <optional>
#include <span>
#include <stop_token>
#include <vector>

namespace Kovrel {

// Searches the same captures again and again, as somebody types: where a term was found is kept, so that a longer one
// is looked for only there, and one that was looked for before costs nothing. One thread at a time.
class HistorySearchEngine {
public:
    struct Request {
        HistorySearchTable::Entries entries;
        HistoryTexts texts;
        HistorySearch::Query query;
        HistoryFilter filter;
        HistoryFacetContext context;
    };

    using Rows = std::vector<std::uint32_t>; // places among the entries, ascending

    // The captures that filter and query leave, by the rule of `HistorySearch::narrow`; nothing when it was stopped.
    std::optional<Rows> find(const Request& request, const std::stop_token& stop);

private:
    struct Hit {
        std::uint32_t row = 0;
        SearchPlace place;
    };

    using Hits = std::shared_ptr<const std::vector<Hit>>; // null: the search was stopped

    void setTable(const Request& request);
    static Rows allRows(const Request& request);
    Hits hitsOf(const QString& text, const std::stop_token& stop);
    Hits searched(const SearchTerm& term, const std::vector<Hit>& before, const std::stop_token& stop) const;
    std::vector<Hit> searchedByTwo(const SearchTerm& term, std::span<const Hit> before,
                                   const std::stop_token& stop) const;
    std::vector<Hit> searchedPart(const SearchTerm& term, std::span<const Hit> before,
                                  const std::stop_token& stop) const;
    Hits hitsOfBeginning(std::string term) const;
    Hits everywhere() const;
    std::optional<Rows> withTerms(const Request& request, const std::stop_token& stop);
    static Rows filtered(Rows rows, const Request& request);

    std::optional<HistorySearchTable> m_table;
    std::map<std::string, Hits> m_memo; // by the terms' bytes; the empty one is found everywhere
};

} // namespace Kovrel
