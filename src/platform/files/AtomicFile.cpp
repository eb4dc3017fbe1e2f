#include "platform/files/AtomicFile.h"

#include "platform/files/HiddenFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <sys/stat.h>

namespace Kovrel {

namespace {

// The file that a path means, through symbolic links.
QString targetOf(const QString& path)
{
    const QFileInfo info(path);
    return info.isSymLink() && info.exists() ? info.canonicalFilePath() : path;
}

} // namespace

SaveFailure AtomicFile::systemFailure(const QString& path, int error)
{
    return {path + ": " + qt_error_string(error)};
}

std::expected<void, SaveFailure> AtomicFile::write(const QString& path, const QByteArray& bytes, Access access)
{
    const QString target = targetOf(path);
    struct stat old{};
    const bool isThere = ::stat(QFile::encodeName(target), &old) == 0;
    if (isThere && !S_ISREG(old.st_mode))
        return std::unexpected(
            SaveFailure{QCoreApplication::translate("AtomicFile", "%1 is not a regular file.").arg(path)});

    const QString folder = QFileInfo(target).absolutePath();
    HiddenFile file(folder, mode_t(access));
    if (!file.isOpen())
        return std::unexpected(systemFailure(folder, errno));
    if (isThere && access == Access::everyoneReads)
        file.tryMode(old.st_mode & 07777);
    const bool isPrecious = isThere && old.st_size > 0;
    if (!file.write(bytes) || (isPrecious && !file.sync()) || !file.moveTo(target))
        return std::unexpected(systemFailure(path, errno));
    return {};
}

} // namespace Kovrel
