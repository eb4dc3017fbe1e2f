#include "platform/desktop/FileTokenStore.h"

#include "platform/Guarded.h"
#include "platform/ReplyFromWorker.h"
#include "platform/files/AtomicFile.h"
#include "platform/files/PrivateFolder.h"
#include "platform/files/RegularFile.h"

#include <QDir>
#include <QFile>

namespace Kovrel {

namespace {

constexpr qint64 maxTokenSize = 64 * 1024;

std::optional<QString> readToken(const QString& path)
{
    const auto content = RegularFile::read(path, maxTokenSize);
    const QString token = QString::fromUtf8(content.value_or(QByteArray())).trimmed();
    return token.isEmpty() ? std::nullopt : std::optional(token);
}

TokenStore::Stored writeToken(const QString& folder, const QString& path, const QString& token)
{
    PrivateFolder::make(folder);
    const auto written = AtomicFile::write(path, token.toUtf8(), AtomicFile::Access::onlyOwner);
    return written ? TokenStore::Stored() : std::unexpected(written.error().message);
}

} // namespace

FileTokenStore::FileTokenStore(MainLoop& loop, Workers& workers, QString folder)
    : m_loop(loop), m_workers(workers), m_folder(std::move(folder))
{
}

template <class Job, class T>
void FileTokenStore::inBackground(Job job, Reply<T> reply)
{
    replyFromWorker<T>(m_loop, m_workers, Lane::utility, std::move(job), std::move(reply));
}

void FileTokenStore::read(const QString& key, Reply<std::optional<QString>> reply)
{
    const auto job = [path = QDir(m_folder).filePath(key)] { return readToken(path); };
    inBackground(Guarded::orElse(job, std::nullopt), std::move(reply));
}

void FileTokenStore::write(const QString& key, const QString& token, Reply<Stored> reply)
{
    const auto job = [folder = m_folder, path = QDir(m_folder).filePath(key), token] {
        return writeToken(folder, path, token);
    };
    inBackground(Guarded::orReason(job), std::move(reply));
}

void FileTokenStore::remove(const QString& key, Reply<bool> reply)
{
    const auto job = [path = QDir(m_folder).filePath(key)] { return !QFile::exists(path) || QFile::remove(path); };
    inBackground(Guarded::orElse(job, false), std::move(reply));
}

} // namespace Kovrel
