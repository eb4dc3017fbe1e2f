#include "saving/AtomicFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QUuid>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace Kovrel {

namespace {

// A file that nobody sees until it takes its place: without a name where the file system can do that, so that nothing
// stays behind when the program dies; hidden otherwise.
class HiddenFile {
public:
    HiddenFile(const QString& folder, AtomicFile::Access access)
        : m_folder(QFile::encodeName(folder)),
          m_descriptor(::open(m_folder, O_TMPFILE | O_WRONLY | O_CLOEXEC, mode_t(access)))
    {
        if (m_descriptor >= 0 || (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL))
            return;
        m_path = hiddenPath();
        m_descriptor = ::open(m_path, O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, mode_t(access));
    }

    ~HiddenFile()
    {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
        if (!m_path.isEmpty())
            ::unlink(m_path);
    }

    HiddenFile(const HiddenFile&) = delete;
    HiddenFile& operator=(const HiddenFile&) = delete;

    int descriptor() const { return m_descriptor; }

    bool write(const QByteArray& bytes)
    {
        for (qsizetype done = 0; done < bytes.size();) {
            const ssize_t count = ::write(m_descriptor, bytes.constData() + done, size_t(bytes.size() - done));
            if (count < 0 && errno != EINTR)
                return false;
            done += qMax<ssize_t>(count, 0);
        }
        return true;
    }

    bool moveTo(const QString& path)
    {
        if (m_path.isEmpty() && !takeName())
            return false;
        if (::rename(m_path, QFile::encodeName(path)) != 0)
            return false;
        m_path.clear();
        return true;
    }

private:
    QByteArray hiddenPath() const { return m_folder + "/.kovrel-" + QUuid::createUuid().toByteArray(QUuid::Id128); }

    bool takeName()
    {
        const QByteArray path = hiddenPath();
        const QByteArray self = "/proc/self/fd/" + QByteArray::number(m_descriptor);
        if (::linkat(AT_FDCWD, self, AT_FDCWD, path, AT_SYMLINK_FOLLOW) != 0)
            return false;
        m_path = path;
        return true;
    }

    QByteArray m_folder;
    QByteArray m_path; // empty: no name
    int m_descriptor;
};

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
    HiddenFile file(folder, access);
    if (file.descriptor() < 0)
        return std::unexpected(systemFailure(folder, errno));
    const bool keepsMode = !isThere || ::fchmod(file.descriptor(), old.st_mode & 07777) == 0;
    const bool isPrecious = isThere && old.st_size > 0;
    if (!keepsMode || !file.write(bytes) || (isPrecious && ::fsync(file.descriptor()) != 0) || !file.moveTo(target))
        return std::unexpected(systemFailure(path, errno));
    return {};
}

} // namespace Kovrel
