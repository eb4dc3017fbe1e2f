#include "platform/files/SettingsFile.h"

#include "platform/files/AtomicFile.h"
#include "platform/files/PrivateFolder.h"
#include "platform/files/RegularFile.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.preferences")

constexpr qint64 largestFile = 16 << 20;

// One change at a time, whichever program makes it. The folder itself is locked, so that there is no lock file that
// somebody leaves behind; who holds it for a second hangs, and is waited for no longer.
class FolderLock {
public:
    explicit FolderLock(const QString& folder)
        : m_descriptor(::open(QFile::encodeName(folder), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    {
        for (int tries = 0; ::flock(m_descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK && tries < 100;
             ++tries)
            ::usleep(10'000);
    }

    ~FolderLock() { ::close(m_descriptor); }

    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

private:
    int m_descriptor;
};

QString folderOf(const QString& path)
{
    return QFileInfo(path).absolutePath();
}

} // namespace

std::expected<IniText::Content, QString> SettingsFile::content() const
{
    if (!QFileInfo::exists(m_path))
        return IniText::Content();
    const auto text = RegularFile::read(m_path, largestFile);
    if (!text)
        return std::unexpected(text.error());
    auto parsed = IniText::parse(*text);
    if (!parsed)
        return std::unexpected("there is not enough memory, or too many files are open, to read " + m_path);
    return *std::move(parsed);
}

std::expected<IniText::Values, QString> SettingsFile::read() const
{
    auto present = content();
    if (!present)
        return std::unexpected(present.error());
    if (present->isDamaged)
        repair(present->values);
    return std::move(present->values);
}

std::expected<void, QString> SettingsFile::change(const Changes& changes) const
{
    if (!PrivateFolder::make(folderOf(m_path)))
        return std::unexpected("the folder " + folderOf(m_path) + " can't be made");
    const FolderLock lock(folderOf(m_path));
    auto values = read();
    if (!values)
        return std::unexpected(values.error());
    for (auto change = changes.begin(); change != changes.end(); ++change)
        if (change.value())
            values->insert(change.key(), **change);
        else
            values->remove(change.key());
    return write(*values);
}

std::expected<void, QString> SettingsFile::write(const IniText::Values& values) const
{
    const auto written = AtomicFile::write(m_path, IniText::of(values), AtomicFile::Access::onlyOwner);
    return written ? std::expected<void, QString>() : std::unexpected(written.error().message);
}

void SettingsFile::repair(const IniText::Values& readable) const
{
    const QString copy = m_path + ".unreadable-" + QString::number(QDateTime::currentMSecsSinceEpoch());
    const auto damaged = RegularFile::read(m_path, largestFile);
    const bool isCopied = damaged && AtomicFile::write(copy, *damaged, AtomicFile::Access::onlyOwner);
    if (isCopied && write(readable)) {
        qCWarning(log, "Preferences in %s are damaged; what can be read is used, a copy is kept as %s",
                  qUtf8Printable(m_path), qUtf8Printable(copy));
        return;
    }
    if (isCopied)
        QFile::remove(copy);
    qCWarning(log, "Preferences in %s are damaged and can't be repaired; what can be read is used",
              qUtf8Printable(m_path));
}

} // namespace Kovrel
