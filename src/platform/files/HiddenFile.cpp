#include "platform/files/HiddenFile.h"

#include <QDir>
#include <QFile>
#include <QUuid>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace Kovrel {

namespace {

const QString prefix = ".kovrel-";

QByteArray hiddenPath(const QByteArray& folder)
{
    return folder + '/' + prefix.toLatin1() + QUuid::createUuid().toByteArray(QUuid::Id128);
}

bool lock(int descriptor)
{
    return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
}

} // namespace

HiddenFile::HiddenFile(const QString& folder, mode_t mode)
    : m_folder(QFile::encodeName(folder)), m_descriptor(::open(m_folder, O_TMPFILE | O_WRONLY | O_CLOEXEC, mode))
{
    if (!isOpen() && (errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL)) {
        const QByteArray path = hiddenPath(m_folder);
        m_descriptor = ::open(path, O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, mode);
        if (isOpen())
            m_path = path;
    }
    if (isOpen())
        lock(m_descriptor);
}

HiddenFile::~HiddenFile()
{
    if (!m_path.isEmpty())
        ::unlink(m_path);
    if (isOpen())
        ::close(m_descriptor);
}

void HiddenFile::tryMode(mode_t mode) const
{
    struct stat status{};
    if (::fstat(m_descriptor, &status) == 0 && (status.st_mode & 07777) != mode) [[maybe_unused]]
        const int refused = ::fchmod(m_descriptor, mode);
}

bool HiddenFile::write(const QByteArray& bytes) const
{
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t count = ::write(m_descriptor, bytes.constData() + done, size_t(bytes.size() - done));
        if (count < 0 && errno != EINTR)
            return false;
        done += qMax<ssize_t>(count, 0);
    }
    return true;
}

bool HiddenFile::sync() const
{
    return ::fsync(m_descriptor) == 0;
}

bool HiddenFile::moveTo(const QString& path)
{
    if (m_path.isEmpty() && !takeName())
        return false;
    // Of a second descriptor: the first one keeps the lock until the file has its name.
    if (const int second = ::dup(m_descriptor); second < 0 || ::close(second) != 0)
        return false;
    if (::rename(m_path, QFile::encodeName(path)) != 0)
        return false;
    m_path.clear();
    return true;
}

bool HiddenFile::takeName()
{
    const QByteArray path = hiddenPath(m_folder);
    const QByteArray self = "/proc/self/fd/" + QByteArray::number(m_descriptor);
    if (::linkat(AT_FDCWD, self, AT_FDCWD, path, AT_SYMLINK_FOLLOW) != 0)
        return false;
    m_path = path;
    return true;
}

void HiddenFile::sweep(const QString& folder)
{
    for (const QFileInfo& entry : QDir(folder).entryInfoList({prefix + '*'}, QDir::Files | QDir::Hidden)) {
        const QByteArray path = QFile::encodeName(entry.filePath());
        const int descriptor = ::open(path, O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
        if (descriptor < 0)
            continue;
        if (lock(descriptor))
            ::unlink(path);
        ::close(descriptor);
    }
}

} // namespace Kovrel
