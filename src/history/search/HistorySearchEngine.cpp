#include "history/search/HistorySearchEngine.h"

#include "history/search/SearchTerm.h"

#include <algorithm>
#include <numeric>
#include <ranges>

namespace Kovrel {

namespace {

// More than anybody goes back to.
constexpr size_t mostTerms = 64;
// Texts lie all over the memory: one is fetched while those before it are searched.
constexpr size_t fetchedAhead = 8;
constexpr size_t rowsBetweenStops = 256;

} // namespace

std::optional<HistorySearchEngine::Rows> HistorySearchEngine::find(const Request& request, const std::stop_token& stop)
{
    if (stop.stop_requested())
        return std::nullopt;
    setTable(request);
    auto rows = withTerms(request.query, stop);
    if (rows && !request.filter.isEmpty())
        rows = filtered(std::move(*rows), request);
    return rows;
}

void HistorySearchEngine::setTable(const Request& request)
{
    if (m_table && m_table->isOf(request.entries, request.texts))
        return;
    m_memo.clear();
    m_table.emplace(request.entries, request.texts);
}

std::optional<HistorySearchEngine::Rows> HistorySearchEngine::withTerms(const HistorySearch::Query& query,
                                                                        const std::stop_token& stop)
{
    if (query.terms.empty())
        return allRows();
    std::optional<Rows> rows;
    for (const QString& term : query.terms) {
        const Hits hits = hitsOf(term, stop);
        if (!hits)
            return std::nullopt;
        Rows both;
        const auto found = *hits | std::views::transform(&Hit::row);
        if (rows)
            std::ranges::set_intersection(*rows, found, std::back_inserter(both));
        else
            both.assign(found.begin(), found.end());
        rows = std::move(both);
    }
    return rows;
}

HistorySearchEngine::Rows HistorySearchEngine::allRows() const
{
    Rows rows(m_table->size());
    std::iota(rows.begin(), rows.end(), 0);
    return rows;
}

HistorySearchEngine::Rows HistorySearchEngine::filtered(Rows rows, const Request& request) const
{
    const auto isChosen = request.filter.predicate(request.context);
    std::erase_if(rows, [&](std::uint32_t row) { return !isChosen(m_table->entry(row)); });
    return rows;
}

HistorySearchEngine::Hits HistorySearchEngine::hitsOf(const QString& text, const std::stop_token& stop)
{
    const SearchTerm term(text);
    if (const auto known = m_memo.find(term.bytes()); known != m_memo.end())
        return known->second;
    const Hits before = hitsOfBeginning(term.bytes());
    auto hits = std::make_shared<std::vector<Hit>>();
    for (size_t at = 0; at < before->size(); ++at) {
        if (at % rowsBetweenStops == 0 && stop.stop_requested())
            return nullptr;
        term.fetch(m_table->text((*before)[std::min(at + fetchedAhead, before->size() - 1)].row));
        const auto& [row, place] = (*before)[at];
        if (const auto found = term.findIn(m_table->fields(row), m_table->text(row), place))
            hits->push_back({row, *found});
    }
    if (m_memo.size() >= mostTerms)
        m_memo.clear();
    return m_memo[term.bytes()] = std::move(hits);
}

// Of the longest term it begins with that is known.
HistorySearchEngine::Hits HistorySearchEngine::hitsOfBeginning(const std::string& term) const
{
    for (size_t length = term.size() - 1; length > 0; --length)
        if (const auto known = m_memo.find(term.substr(0, length)); known != m_memo.end())
            return known->second;
    return everywhere();
}

HistorySearchEngine::Hits HistorySearchEngine::everywhere() const
{
    std::vector<Hit> hits(m_table->size());
    for (std::uint32_t row = 0; row < m_table->size(); ++row)
        hits[row].row = row;
    return std::make_shared<const std::vector<Hit>>(std::move(hits));
}

} // namespace Kovrel
