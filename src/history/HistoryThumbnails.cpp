#include "history/HistoryThumbnails.h"

#include "history/files/ThumbnailFile.h"
#include "platform/Guarded.h"
#include "platform/files/AtomicFile.h"

#include <QElapsedTimer>
#include <QLoggingCategory>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.history")

constexpr qint64 longTime = 1000; // milliseconds

std::optional<QByteArray> encodedAndTimed(QUuid id, const QImage& capture)
{
    QElapsedTimer timer;
    timer.start();
    auto jpeg = ThumbnailFile::encoded(capture);
    if (timer.elapsed() > longTime)
        qCWarning(log, "thumbnail for %s took %ld ms", id.toByteArray(QUuid::WithoutBraces).toUpper().constData(),
                  long(timer.elapsed()));
    return jpeg;
}

} // namespace

HistoryThumbnails::HistoryThumbnails(MainLoop& loop, Workers& workers, HistoryFiles files,
                                     const HistoryRecords& records, PendingWrites& writes)
    : m_loop(loop), m_files(std::move(files)), m_records(records), m_writes(writes), m_scope(loop, workers)
{
}

void HistoryThumbnails::make(QUuid id, const QImage& capture)
{
    Scope::start(makeInBackground(id, capture), "making a thumbnail");
}

// The file is written in the lane in which a deletion would remove it, so that none stays behind.
QCoro::Task<> HistoryThumbnails::makeInBackground(QUuid id, QImage capture)
{
    const auto underWay = m_writes.begin(id);
    const auto encode = Guarded::orElse([id, capture] { return encodedAndTimed(id, capture); }, std::nullopt);
    capture = {};
    const std::optional<QByteArray> jpeg =
        co_await m_scope.onWorker(Lane::thumbnails, QualityOfService::utility, encode);
    if (!jpeg || !m_records.entry(id))
        co_return;
    const auto write = [path = m_files.thumbnail(id), bytes = *jpeg] {
        if (const auto done = AtomicFile::write(path, bytes, AtomicFile::Access::onlyOwner); !done)
            qCWarning(log, "A thumbnail was not written: %s", qUtf8Printable(done.error().message));
    };
    co_await m_scope.onWorker(Lane::history, QualityOfService::utility, Guarded::job(write, Guarded::logReason));
    drop(id);
}

QImage HistoryThumbnails::cached(QUuid id) const
{
    const QImage* image = m_cache.object(id);
    return image ? *image : QImage();
}

void HistoryThumbnails::read(QUuid id, std::stop_token stop, Reply<QImage> reply)
{
    if (const QImage image = cached(id); !image.isNull())
        m_loop.post([image, reply = std::move(reply)] { reply(image); });
    else
        Scope::start(readInBackground(id, std::move(stop), std::move(reply)), "reading a thumbnail");
}

QCoro::Task<> HistoryThumbnails::readInBackground(QUuid id, std::stop_token stop, Reply<QImage> reply)
{
    const auto read = [files = m_files, id, stop] {
        return stop.stop_requested() ? QImage() : ThumbnailFile::read(files, id);
    };
    const QImage image = co_await m_scope.onWorker(Lane::thumbnails, Guarded::orElse(read, QImage()));
    if (!image.isNull() && m_records.entry(id))
        m_cache.insert(id, new QImage(image), image.sizeInBytes() / 1024 + 1);
    reply(image);
}

} // namespace Kovrel
