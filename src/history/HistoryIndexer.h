#pragma once

#include "history/CaptureHistoryStore.h"
#include "history/HistoryIndexing.h"
#include "history/search/HistoryBackfill.h"
#include "history/search/HistoryTextIndex.h"
#include "ports/Ports.h"

namespace Kovrel {

// Follows captures with their words: what is read of them is indexed, and what nobody has read is read when the machine
// is idle. Main thread.
class HistoryIndexer : public HistoryIndexing {
public:
    // Follows the store from now on. `folder` is the store's.
    HistoryIndexer(MainLoop& loop, Workers& workers, Ports& ports, CaptureHistoryStore& store, QString folder);

    HistoryTextIndex& index() { return m_index; }

    // Loads the words where they are not.
    void load();
    // Called at once when they are loaded already, and also where that fails.
    void whenLoaded(std::function<void()> callback);

    void set(QUuid id, const OCRResult& text) override { m_index.set(text.lines, id); }

    void remove(QUuid id) override { m_index.remove(id); }

    void retain(const QSet<QUuid>& ids) override { m_index.retain(ids); }

    void suspend() override { m_backfill.suspend(); }

    void scheduleWhenIdle() override;

    // The last moment, after the store's: words of what was removed go from the disk, without the main thread.
    void prepareToEnd() { m_index.writeLast(m_folder); }

private:
    HistoryBackfill::Captures captures();
    std::vector<QUuid> ids() const;
    QCoro::Task<CaptureOCRStore::Kind> kind(QUuid id);
    QCoro::Task<QImage> pixels(CaptureOCRStore::Key key);
    QCoro::Task<std::optional<std::vector<QRCode>>> codes(QImage image);
    QCoro::Task<std::vector<QUuid>> outdated();
    void tellLoaded();

    Ports& m_ports;
    CaptureHistoryStore& m_store;
    QString m_folder;
    QDateTime m_modelsChanged; // as they were asked last
    HistoryTextIndex m_index;
    HistoryBackfill m_backfill;
    std::vector<std::function<void()>> m_whenLoaded;
    Subscription m_changes;
    Scope m_scope;
};

} // namespace Kovrel
