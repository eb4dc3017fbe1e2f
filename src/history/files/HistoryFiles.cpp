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

std::optional<QStringList> HistoryFiles::names() const
{
    DIR* folder = ::opendir(QFile::encodeName(m_folder));
    if (!folder)
        return errno == ENOENT ? std::optional(QStringList()) : std::nullopt;
    QStringList names;
    errno = 0;
    while (const dirent* file = ::readdir(folder))
        names << QFile::decodeName(file->d_name);
    const bool isComplete = errno == 0;
    ::closedir(folder);
    return isComplete ? std::optional(names) : std::nullopt;
}

std::optional<QUuid> HistoryFiles::owner(const QString& name)
{
    if (name.size() < idLength)
        return std::nullopt;
    const QUuid id = QUuid::fromString(QStringView(name).first(idLength));
    return id.isNull() ? std::nullopt : std::optional(id);
}

QSet<QUuid> HistoryFiles::captures(const QStringList& names)
{
    QSet<QUuid> ids;
    for (const QString& name : names)
        if (const auto id = name.size() == idLength + 4 && name.endsWith(".png") ? owner(name) : std::nullopt)
            ids.insert(*id);
    return ids;
}

} // namespace Kovrel
