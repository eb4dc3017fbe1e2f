#include "historywindow/HistoryBrowser.h"

#include <algorithm>

namespace Kovrel {

HistoryBrowser::HistoryBrowser(MainLoop& loop, Workers& workers, CaptureHistoryStore& store, HistoryTextIndex& index)
    : m_loop(loop),
      m_store(store),
      m_index(index),
      m_session(loop, workers, index, [this](HistorySearchSession::Result result) { take(std::move(result)); }),
      m_storeChanges(store.onChange([this] { takeChange(); }))
{
}

void HistoryBrowser::setShown(bool isShown)
{
    m_isShown = isShown;
    if (isShown && m_isStale)
        takeEntries();
}

void HistoryBrowser::takeChange()
{
    m_isStale = true;
    if (m_isShown)
        takeEntries();
}

void HistoryBrowser::setList(std::optional<QUuid> list)
{
    if (list == m_list)
        return;
    m_list = list;
    takeChange();
}

// What is looked at, before it is narrowed.
HistorySearchSession::Entries HistoryBrowser::listed() const
{
    return std::make_shared<const std::vector<HistoryEntry>>(m_list ? m_store.entriesIn(*m_list)
                                                                    : m_store.timelineEntries());
}

void HistoryBrowser::takeEntries()
{
    m_isStale = false;
    m_areOptionsStale = true;
    if (!m_text.isEmpty() || !m_suggestions.filter().isEmpty())
        takeOptions();
    m_session.setFilter(m_suggestions.filter(), HistoryFacetContext::of(m_store.lists(), m_loop.date()));
    m_session.setEntries(listed());
}

// What can be chosen is counted when somebody begins to type.
void HistoryBrowser::takeOptions()
{
    if (!std::exchange(m_areOptionsStale, false))
        return;
    m_options = HistoryFacetOptions::of(*listed(), m_store.lists(), m_loop.date());
    m_suggestions.setOptions(m_options);
}

void HistoryBrowser::setText(const QString& text)
{
    if (text == m_text)
        return;
    m_text = text;
    takeOptions();
    m_suggestions.setText(text);
    m_session.setQuery(text);
    m_observers.notify();
}

void HistoryBrowser::clear()
{
    while (!m_suggestions.filter().isEmpty())
        m_suggestions.removeLast();
    applyFilter();
    setText({});
}

bool HistoryBrowser::isNarrowed() const
{
    return !m_suggestions.filter().isEmpty() || !HistorySearch::parse(m_text).terms.empty();
}

void HistoryBrowser::take(HistorySearchSession::Result result)
{
    m_shown.clear();
    m_shown.reserve(qsizetype(result.rows.size()));
    for (const auto row : result.rows)
        m_shown.append((*result.entries)[row]);
    m_query = std::move(result.query);
    m_hasLooked = m_store.isLoaded();
    m_observers.notify();
}

std::vector<Rect> HistoryBrowser::hits(QUuid id)
{
    return m_query.terms.empty() ? std::vector<Rect>() : m_index.hits(id, m_query);
}

// --- Filters

void HistoryBrowser::applyFilter()
{
    m_session.setFilter(m_suggestions.filter(), HistoryFacetContext::of(m_store.lists(), m_loop.date()));
    m_observers.notify();
}

HistoryFacetOptions::Option HistoryBrowser::option(const HistoryFacet& facet) const
{
    const auto found = std::ranges::find(m_options, facet, &HistoryFacetOptions::Option::facet);
    return found == m_options.end() ? HistoryFacetOptions::Option{.facet = facet} : *found;
}

void HistoryBrowser::moveHighlight(int by)
{
    m_suggestions.moveHighlight(by);
    m_observers.notify();
}

bool HistoryBrowser::commitHighlight()
{
    if (!m_suggestions.commitHighlight())
        return false;
    setText(m_suggestions.text());
    applyFilter();
    return true;
}

void HistoryBrowser::choose(const HistoryFacet& facet)
{
    if (!m_suggestions.filter().contains(facet))
        m_suggestions.toggle(facet);
    setText({});
    applyFilter();
}

void HistoryBrowser::removeFilter(const HistoryFacet& facet)
{
    if (m_suggestions.filter().contains(facet))
        m_suggestions.toggle(facet);
    applyFilter();
}

void HistoryBrowser::removeLastFilter()
{
    m_suggestions.removeLast();
    applyFilter();
}

} // namespace Kovrel
