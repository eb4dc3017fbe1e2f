#include "history/search/HistoryFilterSuggestions.h"

#include <algorithm>

namespace Kovrel {

void HistoryFilterSuggestions::setOptions(std::vector<Option> options)
{
    m_options = std::move(options);
    update();
}

void HistoryFilterSuggestions::setText(const QString& text)
{
    m_text = text;
    update();
}

void HistoryFilterSuggestions::toggle(const HistoryFacet& facet)
{
    m_filter.toggle(facet);
    update();
}

void HistoryFilterSuggestions::removeLast()
{
    m_filter.removeLast();
    update();
}

void HistoryFilterSuggestions::moveHighlight(int by)
{
    const int last = int(m_rows.size()) - 1;
    if (last < 0)
        return;
    const int from = m_highlight ? int(*m_highlight) : by > 0 ? -1 : last + 1;
    m_highlight = size_t(std::clamp(from + by, 0, last));
}

bool HistoryFilterSuggestions::commitHighlight()
{
    if (!m_highlight)
        return false;
    m_text.clear();
    toggle(m_rows[*m_highlight].facet);
    return true;
}

// Counts that change while somebody looks leave the highlight on its row.
void HistoryFilterSuggestions::update()
{
    const auto before = m_highlight ? std::optional(m_rows[*m_highlight].facet) : std::nullopt;
    m_rows = HistoryFacetSuggestions::match(m_text, m_options, m_filter);
    const auto place = std::ranges::find_if(m_rows, [&before](const Option& row) { return before == row.facet; });
    m_highlight = place == m_rows.end() ? std::nullopt : std::optional(size_t(place - m_rows.begin()));
}

} // namespace Kovrel
