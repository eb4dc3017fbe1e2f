#include "platform/files/AtomicFile.h"

#include "platform/files/HiddenFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Kovrel {

namespace {

// The file that a path means, through symbolic links.
QString targetOf(const QString& path)
{
    const QFileInfo info(path);
    return info.isSymLink() && info.exists() ? info.canonicalFilePath() : path;
}

// How far bytes are followed.
enum class Reach { fileSystem, disk };

// There are file systems that can't do it for folders.
void syncFolder(const QString& folder)
{
    if (const int descriptor = ::open(QFile::encodeName(folder), O_RDONLY | O_DIRECTORY | O_CLOEXEC); descriptor >= 0) {
        ::fsync(descriptor);
        ::close(descriptor);
    }
}

std::expected<void, SaveFailure> put(const QString& path, const QByteArray& bytes, AtomicFile::Access access,
                                     Reach reach)
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
        return std::unexpected(AtomicFile::systemFailure(folder, errno));
    if (isThere && access == AtomicFile::Access::everyoneReads)
        file.tryMode(old.st_mode & 07777);
    const bool isSynced = reach == Reach::disk || (isThere && old.st_size > 0);
    if (!file.write(bytes) || (isSynced && !file.sync()) || !file.moveTo(target))
        return std::unexpected(AtomicFile::systemFailure(path, errno));
    if (reach == Reach::disk)
        syncFolder(folder);
    return {};
}

} // namespace

SaveFailure AtomicFile::systemFailure(const QString& path, int error)
{
    return {path + ": " + qt_error_string(error)};
}

std::expected<void, SaveFailure> AtomicFile::write(const QString& path, const QByteArray& bytes, Access access)
{
    return put(path, bytes, access, Reach::fileSystem);
}

std::expected<void, SaveFailure> AtomicFile::writeThrough(const QString& path, const QByteArray& bytes, Access access)
{
    return put(path, bytes, access, Reach::disk);
}

} // namespace Kovrel
