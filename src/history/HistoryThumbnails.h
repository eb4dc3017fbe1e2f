#pragma once

#include "history/HistoryRecords.h"
#include "history/PendingWrites.h"

#include <QCache>
#include <QImage>

#include <stop_token>

namespace Kovrel {

// The small pictures of captures: made, stored, read again, and as many kept in memory as 64 MB hold. Main thread.
class HistoryThumbnails {
public:
    HistoryThumbnails(MainLoop& loop, Workers& workers, HistoryFiles files, const HistoryRecords& records,
                      PendingWrites& writes);

    // Of a capture as it looks.
    void make(QUuid id, const QImage& capture);

    // The file is another one, or none.
    void drop(QUuid id) { m_cache.remove(id); }

    QImage cached(QUuid id) const;
    // Null where there is none, and soon once nobody wants it any more.
    void read(QUuid id, std::stop_token stop, Reply<QImage> reply);

private:
    QCoro::Task<> makeInBackground(QUuid id, QImage capture);
    QCoro::Task<> readInBackground(QUuid id, std::stop_token stop, Reply<QImage> reply);

    static constexpr qsizetype mostKilobytes = 64 * 1024;

    MainLoop& m_loop;
    HistoryFiles m_files;
    const HistoryRecords& m_records;
    PendingWrites& m_writes;
    QCache<QUuid, QImage> m_cache{mostKilobytes};
    Scope m_scope;
};

} // namespace Kovrel
