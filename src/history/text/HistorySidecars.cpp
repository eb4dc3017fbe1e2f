#include "history/text/HistorySidecars.h"

#include "recognition/CaptureOCRStore.h"

#include <QFile>
#include <QSet>

namespace Kovrel {

namespace {

namespace fs = std::filesystem;

constexpr size_t idLength = 36;

fs::path pathOf(const QString& path)
{
    return QFile::encodeName(path).toStdString();
}

// The captures that have files, and those of them that were edited.
struct Captures {
    QSet<QUuid> read;
    QSet<QUuid> edited;

    void add(const std::string& name)
    {
        const QUuid id = QUuid::fromString(QString::fromStdString(name.substr(0, idLength)));
        if (id.isNull())
            return;
        if (name.ends_with("_ocr.json"))
            read.insert(id);
        else if (name.substr(idLength) == "_edited.png")
            edited.insert(id);
    }
};

Captures capturesIn(const QString& folder)
{
    Captures captures;
    std::error_code error;
    for (fs::directory_iterator file(pathOf(folder), error); !error && file != fs::directory_iterator();
         file.increment(error))
        captures.add(file->path().filename().string());
    return captures;
}

} // namespace

QHash<QUuid, HistorySidecars::Sidecar> HistorySidecars::in(const QString& folder)
{
    QHash<QUuid, Sidecar> sidecars;
    const Captures captures = capturesIn(folder);
    for (const QUuid& id : captures.read) {
        const QStringList paths = CaptureOCRStore::sidecarURLs(id, folder);
        const QString& path = captures.edited.contains(id) ? paths.back() : paths.front();
        if (const auto time = modified(path))
            sidecars.insert(id, {path, *time});
    }
    return sidecars;
}

std::vector<QUuid> HistorySidecars::olderThan(const QDateTime& time, const QString& folder)
{
    const Time limit =
        Time::clock::from_sys(std::chrono::sys_time(std::chrono::milliseconds(time.toMSecsSinceEpoch())));
    std::vector<QUuid> older;
    for (const auto& [id, sidecar] : in(folder).asKeyValueRange())
        if (sidecar.modified < limit)
            older.push_back(id);
    return older;
}

std::optional<HistorySidecars::Time> HistorySidecars::modified(const QString& path)
{
    std::error_code error;
    const Time time = fs::last_write_time(pathOf(path), error);
    return error ? std::nullopt : std::optional(time);
}

} // namespace Kovrel
