#include "history/search/HistorySearchEngine.h"

#include <algorithm>
#include <future>
#include <numeric>
#include <ranges>

namespace Kovrel {

namespace {

// More than anybody goes back to.
constexpr size_t mostTerms = 32;
// Texts lie all over the memory: one is fetched while those before it are searched.
constexpr size_t fetchedAhead = 8;
constexpr size_t rowsBetweenStops = 256;
// A thread takes as long to start as some hundred rows.
constexpr size_t worthTwoThreads = 4000;

HistorySearchEngine::Rows inBoth(const HistorySearchEngine::Rows& rows, const auto& others)
{
    HistorySearchEngine::Rows both;
    std::ranges::set_intersection(rows, others, std::back_inserter(both));
    return both;
}

} // namespace

std::optional<HistorySearchEngine::Rows> HistorySearchEngine::find(const Request& request, const std::stop_token& stop)
{
    if (stop.stop_requested())
        return std::nullopt;
    auto rows = request.query.terms.empty() ? allRows(request) : withTerms(request, stop);
    if (rows && !request.filter.isEmpty())
        rows = filtered(std::move(*rows), request);
    return rows;
}

void HistorySearchEngine::setTable(const Request& request)
{
    if (m_table && m_table->isOf(request.entries, request.texts))
        return;
    m_table.emplace(request.entries, request.texts);
    m_memo = {{std::string(), everywhere()}};
}

HistorySearchEngine::Rows HistorySearchEngine::allRows(const Request& request)
{
    Rows rows(request.entries->size());
    std::iota(rows.begin(), rows.end(), 0);
    return rows;
}

std::optional<HistorySearchEngine::Rows> HistorySearchEngine::withTerms(const Request& request,
                                                                        const std::stop_token& stop)
{
    setTable(request);
    std::optional<Rows> rows;
    for (const QString& term : request.query.terms) {
        const Hits hits = hitsOf(term, stop);
        if (!hits)
            return std::nullopt;
        const auto found = *hits | std::views::transform(&Hit::row);
        rows = rows ? inBoth(*rows, found) : Rows(found.begin(), found.end());
    }
    return rows;
}

HistorySearchEngine::Rows HistorySearchEngine::filtered(Rows rows, const Request& request)
{
    const auto isChosen = request.filter.predicate(request.context);
    std::erase_if(rows, [&](std::uint32_t row) { return !isChosen((*request.entries)[row]); });
    return rows;
}

HistorySearchEngine::Hits HistorySearchEngine::hitsOf(const QString& text, const std::stop_token& stop)
{
    const SearchTerm term(text);
    if (const auto known = m_memo.find(term.bytes()); known != m_memo.end())
        return known->second;
    const Hits hits = searched(term, *hitsOfBeginning(term.bytes()), stop);
    if (m_memo.size() >= mostTerms)
        m_memo = {{std::string(), everywhere()}};
    return hits ? m_memo[term.bytes()] = hits : nullptr;
}

HistorySearchEngine::Hits HistorySearchEngine::searched(const SearchTerm& term, const std::vector<Hit>& before,
                                                        const std::stop_token& stop) const
{
    const auto search =
        before.size() < worthTwoThreads ? &HistorySearchEngine::searchedPart : &HistorySearchEngine::searchedByTwo;
    std::vector<Hit> hits = (this->*search)(term, before, stop);
    return stop.stop_requested() ? nullptr : std::make_shared<const std::vector<Hit>>(std::move(hits));
}

// Memory is faster than one processor reads it. Where no other thread can be had, the second half is searched behind
// the first.
std::vector<HistorySearchEngine::Hit> HistorySearchEngine::searchedByTwo(const SearchTerm& term,
                                                                         std::span<const Hit> before,
                                                                         const std::stop_token& stop) const
{
    const size_t half = before.size() / 2;
    const auto search = [&](std::span<const Hit> part) { return searchedPart(term, part, stop); };
    auto second = std::async(std::launch::async | std::launch::deferred, search, before.subspan(half));
    std::vector<Hit> hits = search(before.first(half));
    const std::vector<Hit> others = second.get();
    hits.insert(hits.end(), others.begin(), others.end());
    return hits;
}

std::vector<HistorySearchEngine::Hit> HistorySearchEngine::searchedPart(const SearchTerm& term,
                                                                        std::span<const Hit> before,
                                                                        const std::stop_token& stop) const
{
    std::vector<Hit> hits;
    hits.reserve(before.size());
    const auto behind = [&before](size_t at, size_t by) { return before[std::min(at + by, before.size() - 1)]; };
    for (size_t at = 0; at < before.size(); ++at) {
        if (at % rowsBetweenStops == 0 && stop.stop_requested())
            break;
        const Hit later = behind(at, fetchedAhead);
        term.fetch(m_table->text(later.row), later.place);
        const auto& [row, place] = before[at];
        const SearchableText& next = m_table->text(behind(at, 1).row);
        if (const auto found = term.findIn(m_table->fields(row), m_table->text(row), place, next))
            hits.push_back({row, *found});
    }
    hits.shrink_to_fit();
    return hits;
}

// Of the longest term it begins with that is known. No letters are.
HistorySearchEngine::Hits HistorySearchEngine::hitsOfBeginning(std::string term) const
{
    auto known = m_memo.end();
    for (; known == m_memo.end(); known = m_memo.find(term))
        term.pop_back();
    return known->second;
}

HistorySearchEngine::Hits HistorySearchEngine::everywhere() const
{
    std::vector<Hit> hits(m_table->size());
    for (std::uint32_t row = 0; row < m_table->size(); ++row)
        hits[row].row = row;
    return std::make_shared<const std::vector<Hit>>(std::move(hits));
}

} // namespace Kovrel
