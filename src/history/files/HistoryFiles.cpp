#include "history/files/HistoryFiles.h"

#include "recognition/CaptureOCRStore.h"

#include <QFile>
#include <QImageReader>

#include <cerrno>
#include <dirent.h>

namespace Kovrel {

namespace {

constexpr qsizetype idLength = 36;

} // namespace

QString HistoryFiles::path(QUuid id, const char* ending) const
{
    return m_folder + '/' + id.toString(QUuid::WithoutBraces).toUpper() + QLatin1StringView(ending);
}

QString HistoryFiles::full(QUuid id) const
{
    return QFile::exists(edited(id)) ? edited(id) : base(id);
}

void HistoryFiles::remove(QUuid id) const
{
    for (const QString& path : QStringList{base(id), edited(id), thumbnail(id), annotations(id), backdrop(id)} +
                                   CaptureOCRStore::sidecarURLs(id, m_folder))
        QFile::remove(path);
}

QHash<QUuid, QSize> HistoryFiles::pixelSizes(const std::vector<QUuid>& ids) const
{
    QHash<QUuid, QSize> sizes;
    for (const QUuid id : ids)
        if (const QSize size = QImageReader(base(id), "png").size(); size.isValid())
            sizes.insert(id, size);
    return sizes;
}

// A name at a time: there may be many thousands.
bool HistoryFiles::forEachName(const std::function<void(QByteArrayView)>& use) const
{
    DIR* folder = ::opendir(QFile::encodeName(m_folder));
    if (!folder)
        return errno == ENOENT;
    errno = 0;
    while (const dirent* file = ::readdir(folder))
        use(QByteArrayView(file->d_name));
    const bool isComplete = errno == 0;
    ::closedir(folder);
    return isComplete;
}

std::optional<QStringList> HistoryFiles::names() const
{
    QStringList names;
    const bool isRead = forEachName([&names](QByteArrayView name) { names << QFile::decodeName(name.toByteArray()); });
    return isRead ? std::optional(names) : std::nullopt;
}

std::optional<QSet<QUuid>> HistoryFiles::captures() const
{
    QSet<QUuid> ids;
    const bool isRead = forEachName([&ids](QByteArrayView name) {
        if (name.size() == idLength + 4 && name.endsWith(".png"))
            if (const QUuid id = QUuid::fromString(QLatin1StringView(name.first(idLength))); !id.isNull())
                ids.insert(id);
    });
    return isRead ? std::optional(ids) : std::nullopt;
}

std::optional<QUuid> HistoryFiles::owner(const QString& name)
{
    if (name.size() < idLength)
        return std::nullopt;
    const QUuid id = QUuid::fromString(QStringView(name).first(idLength));
    return id.isNull() ? std::nullopt : std::optional(id);
}

} // namespace Kovrel
