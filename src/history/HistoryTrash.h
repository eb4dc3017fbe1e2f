#pragma once

#include "history/HistoryRecords.h"

namespace Kovrel {

// Captures that were deleted a moment ago and can come back. Main thread.
class HistoryTrash {
public:
    // `lapsed` hears of captures that can't come back any more.
    HistoryTrash(MainLoop& loop, HistoryRecords& records, std::chrono::milliseconds undoTime,
                 std::function<void(const QSet<QUuid>&)> lapsed);
    ~HistoryTrash();
    HistoryTrash(const HistoryTrash&) = delete;
    HistoryTrash& operator=(const HistoryTrash&) = delete;

    // In the place of what was there. `hidden` ones stay in their lists and only leave the timeline.
    void take(const QSet<QUuid>& ids, const QSet<QUuid>& hidden);

    bool isEmpty() const { return m_entries.isEmpty() && m_hidden.isEmpty(); }

    QSet<QUuid> ids() const;

    void restore();
    // At once.
    void lapse();

private:
    void noteEntries(const QSet<QUuid>& ids);
    void noteHidden(const QSet<QUuid>& ids);
    void noteLists(const QSet<QUuid>& ids);

    // Where a capture was filed.
    struct Place {
        QUuid list;
        size_t position = 0;
        QUuid id;
    };

    MainLoop& m_loop;
    HistoryRecords& m_records;
    std::chrono::milliseconds m_undoTime;
    std::function<void(const QSet<QUuid>&)> m_lapsed;
    QList<HistoryEntry> m_entries;
    std::vector<Place> m_places; // each list's in order
    QSet<QUuid> m_hidden;
    MainLoop::TimerID m_timer = 0;
};

} // namespace Kovrel
