#include "saving/ReservationJournal.h"

#include "platform/files/PrivateFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QUuid>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Kovrel {

namespace {

const QString prefix = "reservations-";

// A file that was swept away between its creation and its lock does not count.
bool openLocked(QFile& file, const QString& path)
{
    const int descriptor = ::open(QFile::encodeName(path), O_CREAT | O_RDWR | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (descriptor < 0 || !file.open(descriptor, QIODevice::ReadWrite | QIODevice::Unbuffered, QFile::AutoCloseHandle))
        return false;
    struct stat opened{};
    struct stat named{};
    const bool isOurs = ::flock(descriptor, LOCK_EX | LOCK_NB) == 0 && ::fstat(descriptor, &opened) == 0 &&
                        ::stat(QFile::encodeName(path), &named) == 0 && opened.st_ino == named.st_ino;
    if (!isOurs)
        file.close();
    return isOurs;
}

void removeIfEmpty(const QString& path)
{
    struct stat status{};
    const QByteArray name = QFile::encodeName(path);
    if (::lstat(name, &status) == 0 && S_ISREG(status.st_mode) && status.st_size == 0)
        ::unlink(name);
}

} // namespace

ReservationJournal::ReservationJournal(const QString& folder)
{
    if (!PrivateFolder::make(folder))
        return;
    for (int attempt = 0; attempt < 3 && !m_file.isOpen(); ++attempt) {
        const QString path = QDir(folder).filePath(prefix + QUuid::createUuid().toString(QUuid::Id128));
        if (openLocked(m_file, path))
            m_path = path;
    }
}

ReservationJournal::~ReservationJournal()
{
    if (m_file.isOpen())
        QFile::remove(m_path);
}

void ReservationJournal::note(const QString& path)
{
    const std::lock_guard lock(m_lock);
    m_noted << path;
    write();
}

void ReservationJournal::clear(const QString& path)
{
    const std::lock_guard lock(m_lock);
    m_noted.removeOne(path);
    write();
}

// A process that is killed in the middle leaves a list that is cut off: what is missing then is not removed.
void ReservationJournal::write()
{
    if (!m_file.isOpen())
        return;
    m_file.resize(0);
    m_file.seek(0);
    m_file.write(m_noted.isEmpty() ? QByteArray() : m_noted.join(QChar::Null).toUtf8() + '\0');
}

void ReservationJournal::sweep(const QString& folder)
{
    for (const QFileInfo& entry : QDir(folder).entryInfoList({prefix + "*"}, QDir::Files | QDir::Hidden)) {
        QFile file;
        if (!openLocked(file, entry.filePath()))
            continue; // its process lives
        QStringList paths = QString::fromUtf8(file.readAll()).split(QChar::Null);
        paths.removeLast(); // what follows the last end mark: nothing, or a path that is cut off
        for (const QString& path : paths)
            removeIfEmpty(path);
        QFile::remove(entry.filePath());
    }
}

} // namespace Kovrel
