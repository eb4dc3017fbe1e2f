#include "history/search/HistoryBackfill.h"

#include <algorithm>
#include <utility>

namespace Kovrel {

namespace {

// And not of the recogniser, which may be installed later.
bool isOfThePicture(RecognitionFailure::Reason reason)
{
    return reason == RecognitionFailure::Reason::failed || reason == RecognitionFailure::Reason::noPicture;
}

} // namespace

HistoryBackfill::HistoryBackfill(MainLoop& loop, Workers& workers, HistoryTextIndex& index, CaptureOCRStore& texts,
                                 Captures captures)
    : m_loop(loop), m_index(index), m_texts(texts), m_captures(std::move(captures)), m_scope(loop, workers)
{
}

HistoryBackfill::~HistoryBackfill()
{
    suspend();
}

void HistoryBackfill::suspend()
{
    m_loop.cancel(std::exchange(m_timer, 0));
    m_isRunning = false;
    m_stop.request_stop();
}

void HistoryBackfill::schedule()
{
    m_loop.cancel(std::exchange(m_timer, 0));
    if (!m_isRunning)
        m_timer = m_loop.after(idleTime, [this] { begin(); });
}

void HistoryBackfill::begin()
{
    m_timer = 0;
    if (!m_index.isLoaded())
        return schedule();
    m_isRunning = true;
    m_stop = std::stop_source();
    Scope::start(run(m_stop.get_token()), "reading the text of captures");
}

// Captures may come and go between two pictures.
QCoro::Task<> HistoryBackfill::run(std::stop_token stop)
{
    bool goesOn = true;
    for (auto id = next(); id && goesOn && !stop.stop_requested(); id = next())
        goesOn = co_await read(*id, stop);
    if (!stop.stop_requested())
        m_isRunning = false;
}

std::optional<QUuid> HistoryBackfill::next() const
{
    const std::vector<QUuid> ids = m_captures.ids();
    const auto place =
        std::ranges::find_if(ids, [this](QUuid id) { return !m_index.knows(id) && !m_failed.contains(id); });
    return place == ids.end() ? std::nullopt : std::optional(*place);
}

// False: no other picture would do better now. Throws Cancelled once it is stopped.
QCoro::Task<bool> HistoryBackfill::read(QUuid id, std::stop_token stop)
{
    const int token = m_index.token(id);
    const CaptureOCRStore::Key key{id, m_captures.kind(id)};
    const auto pixels = [this, key] { return m_captures.pixels(key); };
    const OCROutcome text = co_await m_scope.join(m_texts.text(key, QualityOfService::background, true, pixels, stop));
    if (text)
        m_index.set(text->lines, id, token);
    else if (isOfThePicture(text.error().reason))
        m_failed.insert(id);
    co_return text || m_failed.contains(id);
}

} // namespace Kovrel
