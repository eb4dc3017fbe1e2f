#include "history/HistoryIndexer.h"

#include "history/text/HistorySidecars.h"
#include "platform/Guarded.h"
#include "ports/TextReader.h"

namespace Kovrel {

HistoryIndexer::HistoryIndexer(MainLoop& loop, Workers& workers, Ports& ports, CaptureHistoryStore& store,
                               QString folder)
    : m_ports(ports),
      m_store(store),
      m_folder(std::move(folder)),
      m_index(loop, workers),
      m_backfill(loop, workers, m_index, store.ocr(), captures()),
      m_changes(m_index.onChange([this] { tellLoaded(); })),
      m_scope(loop, workers)
{
    store.attach(*this);
}

void HistoryIndexer::load()
{
    if (!m_index.isLoading() && !m_index.isLoaded())
        m_index.attach(m_folder);
}

void HistoryIndexer::whenLoaded(std::function<void()> callback)
{
    m_whenLoaded.push_back(std::move(callback));
    load();
    tellLoaded();
}

void HistoryIndexer::tellLoaded()
{
    if (m_index.isLoading())
        return;
    for (const auto& callback : std::exchange(m_whenLoaded, {}))
        callback();
}

// Without a program that reads there is nothing to do, and nothing to wait for before the words are loaded.
void HistoryIndexer::scheduleWhenIdle()
{
    if (m_ports.textReader && (m_index.isLoading() || m_index.isLoaded()))
        m_backfill.schedule();
}

HistoryBackfill::Captures HistoryIndexer::captures()
{
    return {
        .ids = [this] { return ids(); },
        .kind = [this](QUuid id) { return kind(id); },
        .pixels = [this](CaptureOCRStore::Key key) { return pixels(key); },
        .codes = [this](QImage image) { return codes(std::move(image)); },
        .outdated = [this] { return outdated(); },
    };
}

std::vector<QUuid> HistoryIndexer::ids() const
{
    std::vector<QUuid> all;
    all.reserve(size_t(m_store.entries().size()));
    for (const HistoryEntry& entry : m_store.entries())
        all.push_back(entry.id);
    return all;
}

QCoro::Task<CaptureOCRStore::Kind> HistoryIndexer::kind(QUuid id)
{
    const QString full = co_await m_scope.reply<QString>([&](auto done) { m_store.fullImageURL(id, done); });
    co_return full == m_store.baseImageURL(id) ? CaptureOCRStore::Kind::base : CaptureOCRStore::Kind::edited;
}

QCoro::Task<QImage> HistoryIndexer::pixels(CaptureOCRStore::Key key)
{
    QImage image = co_await m_scope.reply<QImage>([&](auto done) {
        if (key.kind == CaptureOCRStore::Kind::base)
            m_store.baseImage(key.id, done);
        else
            m_store.fullImage(key.id, done);
    });
    co_return image;
}

QCoro::Task<std::optional<std::vector<QRCode>>> HistoryIndexer::codes(QImage image)
{
    using Codes = std::optional<std::vector<QRCode>>;
    Codes found = co_await m_scope.reply<Codes>([&](auto done) { m_ports.textReader->readCodes(image, done); });
    co_return found;
}

// To ask loads what reads, which nobody needs for a history without captures.
QCoro::Task<std::vector<QUuid>> HistoryIndexer::outdated()
{
    if (m_store.entries().isEmpty())
        co_return {};
    const QDateTime changed =
        co_await m_scope.reply<QDateTime>([this](auto done) { m_ports.textReader->modelsChanged(done); });
    if (!changed.isValid() || changed == std::exchange(m_modelsChanged, changed))
        co_return {};
    m_store.ocr().setModelsChanged(changed);
    const auto look = [changed, folder = m_folder] { return HistorySidecars::olderThan(changed, folder); };
    std::vector<QUuid> older = co_await m_scope.onWorker(Lane::searchIndex, QualityOfService::background,
                                                         Guarded::orElse(look, std::vector<QUuid>()));
    co_return older;
}

} // namespace Kovrel
