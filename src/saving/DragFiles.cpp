#include "saving/DragFiles.h"

#include "platform/files/PrivateFolder.h"
#include "saving/FileNameFormatter.h"

#include <QDir>
#include <QFileInfo>
#include <QUuid>

#include <sys/stat.h>
#include <unistd.h>

namespace Kovrel {

namespace {

bool linkOrCopy(const QString& source, const QString& target)
{
    if (::link(QFile::encodeName(source), QFile::encodeName(target)) == 0)
        return true;
    return QFile::copy(source, target) && QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner);
}

} // namespace

std::optional<QString> DragFiles::newFolder() const
{
    const QString folder = m_root + "/" + QUuid::createUuid().toString(QUuid::WithoutBraces);
    return PrivateFolder::make(m_root) && PrivateFolder::make(folder) ? std::optional(folder) : std::nullopt;
}

std::optional<QString> DragFiles::writeTempImage(const SaveSettings& settings, const QImage& image,
                                                 const QDateTime& date) const
{
    const auto format = SaveService::resolvedFormat(settings, image);
    const auto bytes = ImageCodec::encode(image, format, settings.quality);
    const auto folder = bytes ? newFolder() : std::nullopt;
    if (!folder)
        return std::nullopt;
    const QString name = FileNameFormatter::format(settings.fileNameTemplate, date) + "." + rawString(format);
    QString path = *folder + "/" + SaveService::fittingName(*folder, name);
    if (!AtomicFile::write(path, *bytes, AtomicFile::Access::onlyOwner))
        return std::nullopt;
    return path;
}

std::optional<QString> DragFiles::linkTempImage(const SaveSettings& settings, const QString& source,
                                                const QDateTime& date) const
{
    const auto folder = QFileInfo(source).isFile() ? newFolder() : std::nullopt;
    if (!folder)
        return std::nullopt;
    const QString name = FileNameFormatter::format(settings.fileNameTemplate, date) + ".png";
    const QString path = *folder + "/" + SaveService::fittingName(*folder, name);
    return linkOrCopy(source, path) ? std::optional(path) : std::nullopt;
}

void DragFiles::sweepDragTemp() const
{
    const auto everything = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    for (const QFileInfo& item : QDir(m_root).entryInfoList(everything)) {
        if (item.isDir() && !item.isSymLink())
            QDir(item.filePath()).removeRecursively();
        else
            QFile::remove(item.filePath());
    }
}

} // namespace Kovrel
