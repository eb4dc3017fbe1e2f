#include "history/search/HistorySearchSession.h"

#include "platform/Guarded.h"
#include "platform/ReplyFromWorker.h"

namespace Kovrel {

HistorySearchSession::HistorySearchSession(MainLoop& loop, Workers& workers, HistoryTextIndex& index,
                                           std::function<void(Result)> found)
    : m_loop(loop),
      m_workers(workers),
      m_index(index),
      m_found(std::move(found)),
      m_request{.entries = std::make_shared<const std::vector<HistoryEntry>>()},
      m_subscription(index.onChange([this] { search(); }))
{
}

HistorySearchSession::~HistorySearchSession()
{
    m_stop.request_stop();
}

void HistorySearchSession::setEntries(Entries entries)
{
    m_request.entries = std::move(entries);
    search();
}

// Another blank at its end is not another query.
void HistorySearchSession::setQuery(const QString& text)
{
    HistorySearch::Query query = HistorySearch::parse(text);
    if (query == m_request.query)
        return;
    m_request.query = std::move(query);
    search();
}

void HistorySearchSession::setFilter(HistoryFilter filter, HistoryFacetContext context)
{
    m_request.filter = std::move(filter);
    m_request.context = std::move(context);
    search();
}

void HistorySearchSession::search()
{
    using Rows = HistorySearchEngine::Rows;
    m_stop.request_stop();
    m_stop = std::stop_source();
    m_request.texts = m_index.texts();
    const std::stop_token stop = m_stop.get_token();
    auto find = [engine = m_engine, request = m_request, stop] { return engine->find(request, stop); };
    const auto reply = m_lifeline.guard([this, stop](std::optional<Rows> rows) { answer(stop, std::move(rows)); });
    replyFromWorker<std::optional<Rows>>(m_loop, m_workers, Lane::search, QualityOfService::userInteractive,
                                         Guarded::orElse(std::move(find), std::nullopt), reply);
}

void HistorySearchSession::answer(const std::stop_token& stop, std::optional<HistorySearchEngine::Rows> rows)
{
    if (rows && !stop.stop_requested())
        m_found({m_request.entries, std::move(*rows), m_request.query});
}

} // namespace Kovrel
