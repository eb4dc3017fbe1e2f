#pragma once

#include "history/CaptureHistoryStore.h"
#include "history/search/HistoryFilterSuggestions.h"
#include "history/search/HistorySearchSession.h"

namespace Kovrel {

// What a window of the history looks at: the timeline or a list, and what typed words and chosen filters leave of it.
// Main thread.
class HistoryBrowser {
public:
    HistoryBrowser(MainLoop& loop, Workers& workers, CaptureHistoryStore& store, HistoryTextIndex& index);

    // Whether anybody looks: without, changes of the history cost nothing.
    void setShown(bool isShown);

    // What is shown has changed, or what could be chosen.
    Subscription onChange(std::function<void()> observer) { return m_observers.add(std::move(observer)); }

    // None: the timeline.
    void setList(std::optional<QUuid> list);

    std::optional<QUuid> list() const { return m_list; }

    void setText(const QString& text);
    void clear(); // words and filters
    bool isNarrowed() const;

    // In the order in which they are listed.
    const QList<HistoryEntry>& shown() const { return m_shown; }

    // Whether there is really nothing, or nobody has looked yet.
    bool isEmpty() const { return m_hasLooked && m_shown.isEmpty(); }

    // Where the words that were searched for stand in a capture, each axis from 0 to 1, origin bottom-left.
    std::vector<Rect> hits(QUuid id);

    // --- Filters

    const HistoryFilterSuggestions& suggestions() const { return m_suggestions; }

    // What a chosen filter is called, and a list's colour.
    HistoryFacetOptions::Option option(const HistoryFacet& facet) const;
    void moveHighlight(int by);
    // False when none is highlighted.
    bool commitHighlight();
    void choose(const HistoryFacet& facet);
    void removeFilter(const HistoryFacet& facet);
    void removeLastFilter();

private:
    HistorySearchSession::Entries listed() const;
    void takeChange();
    void takeEntries();
    void takeOptions();
    void applyFilter();
    void take(HistorySearchSession::Result result);

    MainLoop& m_loop;
    CaptureHistoryStore& m_store;
    HistoryTextIndex& m_index;
    std::optional<QUuid> m_list;
    QString m_text;
    HistoryFilterSuggestions m_suggestions;
    bool m_isShown = false;
    bool m_hasLooked = false;
    bool m_isStale = true; // the history has changed since it was shown
    bool m_areOptionsStale = true;
    std::vector<HistoryFacetOptions::Option> m_options;
    QList<HistoryEntry> m_shown;
    HistorySearch::Query m_query; // that of what is shown
    Observers<> m_observers;
    HistorySearchSession m_session;
    Subscription m_storeChanges;
};

} // namespace Kovrel
