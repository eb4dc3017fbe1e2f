#include "history/files/FolderLock.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QLoggingCategory>
#include <QThread>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.history")

constexpr int pause = 2; // milliseconds

} // namespace

FolderLock::FolderLock(const QString& path)
    : m_descriptor(::open(QFile::encodeName(path), O_CREAT | O_RDWR | O_CLOEXEC, 0600))
{
    const QDeadlineTimer deadline(patience);
    while (m_descriptor >= 0 && ::flock(m_descriptor, LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR)
            return;
        if (deadline.hasExpired()) {
            qCWarning(log, "Another program keeps %s; going on without", qUtf8Printable(path));
            return;
        }
        QThread::msleep(pause);
    }
}

FolderLock::~FolderLock()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

} // namespace Kovrel
