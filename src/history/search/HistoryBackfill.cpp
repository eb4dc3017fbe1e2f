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

QCoro::Task<> HistoryBackfill::run(std::stop_token stop)
{
    const bool goesOn = co_await m_scope.join(readAll(stop));
    if (goesOn && !stop.stop_requested()) {
        co_await m_scope.join(findOutdated());
        co_await m_scope.join(readAll(stop));
    }
    if (!stop.stop_requested())
        m_isRunning = false;
}

// Captures may come and go between two pictures. False: see `read`.
QCoro::Task<bool> HistoryBackfill::readAll(std::stop_token stop)
{
    bool goesOn = true;
    for (auto id = next(); id && goesOn && !stop.stop_requested(); id = next())
        goesOn = co_await read(*id, stop);
    co_return goesOn;
}

QCoro::Task<> HistoryBackfill::findOutdated()
{
    const std::vector<QUuid> found = co_await m_scope.join(m_captures.outdated());
    m_outdated.unite({found.begin(), found.end()});
}

std::optional<QUuid> HistoryBackfill::next() const
{
    std::vector<QUuid> ids = m_captures.ids();
    std::erase_if(ids, [this](QUuid id) { return m_failed.contains(id); });
    auto place = std::ranges::find_if(ids, [this](QUuid id) { return !m_index.knows(id); });
    if (place == ids.end())
        place = std::ranges::find_if(ids, [this](QUuid id) { return m_outdated.contains(id); });
    return place == ids.end() ? std::nullopt : std::optional(*place);
}

// False: no other picture would do better now. Throws Cancelled once it is stopped.
QCoro::Task<bool> HistoryBackfill::read(QUuid id, std::stop_token stop)
{
    const int token = m_index.token(id);
    const CaptureOCRStore::Kind kind = co_await m_scope.join(m_captures.kind(id));
    const CaptureOCRStore::Key key{id, kind};
    const auto seen = std::make_shared<QImage>();
    const auto pixels = [this, key, seen] { return this->pixels(key, seen); };
    const OCROutcome text = co_await m_scope.join(m_texts.text(key, QualityOfService::background, true, pixels, stop));
    if (text) {
        const OCRResult whole = co_await m_scope.join(withCodes(*text, key, seen));
        m_index.set(whole.lines, id, token);
        m_outdated.remove(id);
    } else if (isOfThePicture(text.error().reason)) {
        m_failed.insert(id);
    }
    co_return text || m_failed.contains(id);
}

QCoro::Task<QImage> HistoryBackfill::pixels(CaptureOCRStore::Key key, std::shared_ptr<QImage> seen)
{
    const QImage image = co_await m_scope.join(m_captures.pixels(key));
    *seen = image;
    co_return image;
}

// Codes that are known already are in the text. `seen` are the pixels, if the text had to be read in them.
QCoro::Task<OCRResult> HistoryBackfill::withCodes(OCRResult text, CaptureOCRStore::Key key,
                                                  std::shared_ptr<QImage> seen)
{
    const int token = m_texts.token(key.id);
    const std::optional<OCRFile::QRPart> known = co_await m_scope.join(m_texts.codes(key));
    if (known && known->complete)
        co_return text;
    if (seen->isNull())
        co_await m_scope.join(pixels(key, seen));
    const std::optional<std::vector<QRCode>> codes = co_await m_scope.join(m_captures.codes(*seen));
    if (!codes)
        co_return text;
    m_texts.storeCodes(*codes, true, key, token);
    const OCRFile file{.text = OCRFile::TextPart{seen->size(), true, std::move(text)},
                       .qr = OCRFile::QRPart{*codes, true}};
    co_return file.textWithCodes();
}

} // namespace Kovrel
