#include "history/search/HistoryTextIndex.h"

#include "platform/Guarded.h"
#include "recognition/text/TextFind.h"

#include <utility>

namespace Kovrel {

namespace {

using namespace std::chrono_literals;

// Words that were deleted do not wait longer, however large the file.
constexpr auto shortestPace = 400ms;
constexpr size_t bytesPerMillisecond = 1000; // a file of 50 MB is written once a minute at most
constexpr int mostMatches = 200;

} // namespace

HistoryTextIndex::HistoryTextIndex(MainLoop& loop, Workers& workers)
    : m_workers(workers),
      m_save(loop, workers, Lane::searchIndex,
             [this] { return [folder = m_folder, texts = m_texts] { return HistoryTextFile::write(folder, texts); }; }),
      m_scope(loop, workers)
{
}

// --- The file

void HistoryTextIndex::attach(const QString& folder)
{
    m_folder = folder;
    m_state = State::loading;
    Scope::start(load(folder), "loading the text index");
}

QCoro::Task<> HistoryTextIndex::load(QString folder)
{
    const auto read = Guarded::orElse([folder] { return HistoryTextFile::load(folder); }, HistoryTextFile::Loaded());
    std::optional<HistoryTextFile::Loaded> loaded;
    try {
        loaded = co_await m_scope.onWorker(Lane::searchIndex, QualityOfService::utility, read);
    } catch (const std::exception&) { // no thread could be had
        Guarded::logReason(Guarded::reason());
    }
    m_state = loaded ? State::loaded : State::unknown;
    if (loaded)
        takeLoaded(*loaded);
    else
        m_observers.notify();
}

void HistoryTextIndex::takeLoaded(const HistoryTextFile::Loaded& loaded)
{
    const bool isAsStored = loaded.isAsStored && m_touched.isEmpty();
    merge(loaded.texts);
    const bool isChanged = !isAsStored || m_texts.size() != loaded.texts.size();
    changed(isChanged ? std::optional(shortestPace) : std::nullopt);
}

void HistoryTextIndex::merge(const HistoryTexts& stored)
{
    const auto retained = std::exchange(m_retained, std::nullopt);
    const QSet<QUuid> touched = std::exchange(m_touched, {});
    m_texts.reserve(m_texts.size() + stored.size());
    for (const auto& [id, text] : stored.asKeyValueRange())
        if (!touched.contains(id) && (!retained || retained->contains(id)))
            put(id, text);
}

// Before it is loaded, what was read meanwhile is in the sidecars, and found there at the next start.
void HistoryTextIndex::writeLast(const QString& folder)
{
    if (isLoaded())
        m_save.writeNow();
    else if (!m_touched.isEmpty())
        m_workers.submit(Lane::searchIndex, QualityOfService::background,
                         [folder, ids = m_touched] { HistoryTextFile::remove(folder, ids); });
}

MainLoop::Milliseconds HistoryTextIndex::pace() const
{
    return shortestPace + MainLoop::Milliseconds(m_bytes / bytesPerMillisecond);
}

// Without a delay there is nothing to be saved. Before it is loaded, the file has more than is known here.
void HistoryTextIndex::changed(std::optional<MainLoop::Milliseconds> delay)
{
    ++m_generation;
    m_hits.clear();
    if (delay && isLoaded())
        m_save.schedule(*delay);
    m_observers.notify();
}

// --- Texts

void HistoryTextIndex::set(const std::vector<OCRLine>& lines, QUuid id, std::optional<int> token)
{
    if (token && *token != this->token(id))
        return;
    put(id, std::make_shared<const IndexedText>(lines));
    if (!isLoaded())
        m_touched.insert(id);
    changed(pace());
}

void HistoryTextIndex::put(QUuid id, std::shared_ptr<const IndexedText> text)
{
    erase(id);
    m_bytes += text->bytes();
    m_texts.emplace(id, std::move(text));
}

bool HistoryTextIndex::erase(QUuid id)
{
    const auto text = m_texts.take(id);
    m_bytes -= text ? text->bytes() : 0;
    return text != nullptr;
}

void HistoryTextIndex::remove(QUuid id)
{
    ++m_tokens[id];
    if (!isLoaded())
        m_touched.insert(id);
    if (erase(id))
        changed(shortestPace);
}

void HistoryTextIndex::retain(const QSet<QUuid>& ids)
{
    if (!isLoaded())
        m_retained = ids;
    bool isChanged = false;
    for (const QUuid& id : m_texts.keys())
        isChanged |= !ids.contains(id) && erase(id);
    if (isChanged)
        changed(shortestPace);
}

std::vector<OCRLine> HistoryTextIndex::findLines(QUuid id) const
{
    const auto text = m_texts.value(id);
    return text ? text->lines() : std::vector<OCRLine>();
}

// --- Hits

std::vector<Rect> HistoryTextIndex::hits(QUuid id, const HistorySearch::Query& query)
{
    const auto [place, isNew] = m_hits.try_emplace({id.toRfc4122(), query.terms});
    if (isNew)
        place->second = foundRects(id, query);
    return place->second;
}

std::vector<Rect> HistoryTextIndex::foundRects(QUuid id, const HistorySearch::Query& query) const
{
    std::vector<Rect> rects;
    const std::vector<OCRLine> lines = findLines(id);
    for (const QString& term : query.terms)
        for (const TextFind::Match& match : TextFind::matches(term, lines, mostMatches))
            rects.insert(rects.end(), match.boxes.begin(), match.boxes.end());
    return rects;
}

} // namespace Kovrel
