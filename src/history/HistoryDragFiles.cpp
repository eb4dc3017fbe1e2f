#include "history/HistoryDragFiles.h"

#include "platform/Guarded.h"

#include <QFile>
#include <QFileInfo>

namespace Kovrel {

HistoryDragFiles::HistoryDragFiles(MainLoop& loop, Workers& workers, Preferences& preferences,
                                   CaptureHistoryStore& store, const QString& temporaryFolder)
    : m_workers(workers),
      m_preferences(preferences),
      m_store(store),
      m_dragFiles(temporaryFolder),
      m_forgotten(store.onForget([this](QUuid id) { forget(id); })),
      m_changed(store.onPictureChange([this](QUuid id) { forget(id); })),
      m_scope(loop, workers)
{
}

void HistoryDragFiles::file(QUuid id, Reply<std::optional<QString>> reply)
{
    Scope::start(link(id, std::move(reply)), "making a file to drag");
}

QCoro::Task<> HistoryDragFiles::link(QUuid id, Reply<std::optional<QString>> reply)
{
    using Path = std::optional<QString>;
    const QString source = co_await m_scope.reply<QString>([&](auto done) { m_store.fullImageURL(id, done); });
    const HistoryEntry* entry = m_store.entry(id);
    if (!entry) {
        reply(std::nullopt);
        co_return;
    }
    const SaveSettings settings{.fileNameTemplate = m_preferences.get(Settings::fileNameTemplate)};
    const auto job = [files = m_dragFiles, settings, source, date = entry->date.toLocalTime(),
                      known = m_files.value(id)]() -> Path {
        return QFileInfo::exists(known) ? known : files.linkTempImage(settings, source, date);
    };
    const Path path = co_await m_scope.onWorker(Lane::clipboard, Guarded::orElse(job, Path()));
    if (path)
        m_files.insert(id, *path);
    if (!m_store.entry(id))
        forget(id);
    reply(m_store.entry(id) ? path : std::nullopt);
}

void HistoryDragFiles::forget(QUuid id)
{
    if (const QString path = m_files.take(id); !path.isEmpty())
        m_workers.submit(Lane::utility, [path] { QFile::remove(path); });
}

} // namespace Kovrel
