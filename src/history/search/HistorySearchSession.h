#pragma once

#include "history/search/HistorySearchEngine.h"
#include "history/search/HistoryTextIndex.h"
#include "platform/Lifeline.h"

#include <stop_token>

namespace Kovrel {

// One search field and what it leaves of the history. It searches on a worker, anew whenever captures, words, query or
// filter change; only the latest search is told of. Main thread.
class HistorySearchSession {
public:
    using Entries = HistorySearchTable::Entries;

    struct Result {
        Entries entries;
        HistorySearchEngine::Rows rows; // places of those that were found, in the order of the entries
        HistorySearch::Query query;     // what was searched for, for marking it
    };

    // `found` is called for each search that no other has overtaken, never inside another call.
    HistorySearchSession(MainLoop& loop, Workers& workers, HistoryTextIndex& index, std::function<void(Result)> found);
    ~HistorySearchSession();
    HistorySearchSession(const HistorySearchSession&) = delete;
    HistorySearchSession& operator=(const HistorySearchSession&) = delete;

    // Newest first, as the history has them. Captures whose texts come later are found then.
    void setEntries(Entries entries);
    void setQuery(const QString& text);
    void setFilter(HistoryFilter filter, HistoryFacetContext context);

private:
    void search();
    void answer(const std::stop_token& stop, std::optional<HistorySearchEngine::Rows> rows);

    MainLoop& m_loop;
    Workers& m_workers;
    HistoryTextIndex& m_index;
    std::function<void(Result)> m_found;
    HistorySearchEngine::Request m_request;
    std::shared_ptr<HistorySearchEngine> m_engine = std::make_shared<HistorySearchEngine>(); // on the lane only
    std::stop_source m_stop;                                                                 // of the latest search
    Subscription m_subscription;
    Lifeline m_lifeline;
};

} // namespace Kovrel
