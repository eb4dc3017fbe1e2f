#include "platform/desktop/FileTokenStore.h"

#include "platform/Guarded.h"
#include "platform/RegularFile.h"
#include "platform/ReplyFromWorker.h"
#include "platform/files/AtomicFile.h"
#include "platform/files/PrivateFolder.h"

#include <QDir>
#include <QLoggingCategory>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.account")

constexpr qint64 maxTokenSize = 64 * 1024;

std::optional<QString> readToken(const QString& path)
{
    const auto content = RegularFile::read(path, maxTokenSize);
    const QString token = QString::fromUtf8(content.value_or(QByteArray())).trimmed();
    return token.isEmpty() ? std::nullopt : std::optional(token);
}

bool writeToken(const QString& folder, const QString& path, const QString& token)
{
    PrivateFolder::make(folder);
    const auto written = AtomicFile::write(path, token.toUtf8(), AtomicFile::Access::onlyOwner);
    if (!written)
        qCWarning(log, "The account can't be stored: %s", qUtf8Printable(written.error().message));
    return written.has_value();
}

} // namespace

FileTokenStore::FileTokenStore(MainLoop& loop, Workers& workers, QString folder)
    : m_loop(loop), m_workers(workers), m_folder(std::move(folder))
{
}

template <class T>
void FileTokenStore::inBackground(std::function<T()> job, T failed, Reply<T> reply)
{
    replyFromWorker<T>(m_loop, m_workers, Lane::utility, Guarded::orElse(std::move(job), failed), std::move(reply));
}

void FileTokenStore::read(const QString& key, Reply<std::optional<QString>> reply)
{
    inBackground<std::optional<QString>>([path = QDir(m_folder).filePath(key)] { return readToken(path); },
                                         std::nullopt, std::move(reply));
}

void FileTokenStore::write(const QString& key, const QString& token, Reply<bool> reply)
{
    inBackground<bool>(
        [folder = m_folder, path = QDir(m_folder).filePath(key), token] { return writeToken(folder, path, token); },
        false, std::move(reply));
}

void FileTokenStore::remove(const QString& key, Reply<bool> reply)
{
    inBackground<bool>([path = QDir(m_folder).filePath(key)] { return !QFile::exists(path) || QFile::remove(path); },
                       false, std::move(reply));
}

} // namespace Kovrel
