#include "history/search/HistoryFilter.h"

#include <algorithm>
#include <array>

namespace Kovrel {

namespace {

using Predicate = HistoryFilter::Predicate;

// An application without an identifier is known by its name; a capture that has neither is of none.
std::optional<QString> appOf(const HistoryEntry& entry)
{
    return entry.sourceBundleID ? entry.sourceBundleID : entry.sourceAppName;
}

Predicate predicateOf(const HistoryFacet::Kind& kind, const HistoryFacetContext&)
{
    return [mode = kind.mode](const HistoryEntry& entry) { return entry.mode == mode; };
}

Predicate predicateOf(const HistoryFacet::App& app, const HistoryFacetContext&)
{
    return [key = app.key()](const HistoryEntry& entry) { return appOf(entry) == key; };
}

Predicate predicateOf(const HistoryFacet::List& list, const HistoryFacetContext& context)
{
    return [id = list.id, listOf = context.listOf](const HistoryEntry& entry) {
        const auto place = listOf.constFind(entry.id);
        return place != listOf.cend() && *place == id;
    };
}

Predicate predicateOf(const HistoryDateRange& range, const HistoryFacetContext& context)
{
    return [span = range.span(context.now)](const HistoryEntry& entry) { return span.contains(entry.date); };
}

} // namespace

bool HistoryFilter::contains(const HistoryFacet& facet) const
{
    return std::ranges::find(m_facets, facet) != m_facets.end();
}

void HistoryFilter::toggle(const HistoryFacet& facet)
{
    if (contains(facet))
        remove(facet);
    else
        m_facets.push_back(facet);
}

void HistoryFilter::remove(const HistoryFacet& facet)
{
    std::erase(m_facets, facet);
}

void HistoryFilter::removeLast()
{
    if (!m_facets.empty())
        m_facets.pop_back();
}

bool HistoryFilter::matches(const HistoryEntry& entry, const HistoryFacetContext& context) const
{
    return predicate(context)(entry);
}

HistoryFilter::Predicate HistoryFilter::predicate(const HistoryFacetContext& context) const
{
    using Section = std::vector<Predicate>;
    std::array<Section, std::variant_size_v<HistoryFacet::Value>> sections;
    for (const HistoryFacet& facet : m_facets)
        sections[facet.section()].push_back(
            std::visit([&](const auto& value) { return predicateOf(value, context); }, facet.value));
    return [sections = std::move(sections)](const HistoryEntry& entry) {
        return std::ranges::all_of(sections, [&entry](const Section& section) {
            return section.empty() || std::ranges::any_of(section, [&](const auto& has) { return has(entry); });
        });
    };
}

} // namespace Kovrel
