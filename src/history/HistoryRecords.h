#pragma once

#include "history/HistoryWriter.h"
#include "platform/Lifeline.h"
#include "platform/Observers.h"

#include <QHash>

namespace Kovrel {

// The records of the history in memory. Every change is told and brought to the disk. Main thread.
class HistoryRecords {
public:
    // `lost` hears of captures that another program has removed.
    HistoryRecords(MainLoop& loop, Workers& workers, const HistoryFiles& files,
                   std::function<void(const QSet<QUuid>&)> lost);

    const HistoryState& state() const { return m_state; }

    // Null for none; valid until the next change.
    const HistoryEntry* entry(QUuid id) const;

    void load(std::function<void()> loaded);
    // What somebody has read: for a program that changes nothing.
    void show(HistoryState state);

    // The changes of one moment are told together.
    void change(const std::function<void(HistoryState&)>& change);
    void changeEntry(QUuid id, const std::function<void(HistoryEntry&)>& change);

    Subscription onChange(std::function<void()> observer) { return m_observers.add(std::move(observer)); }

    HistoryWriter& writer() { return m_writer; }

private:
    void merge(const HistoryState& base, const HistoryState& theirs);
    void announce();

    MainLoop& m_loop;
    HistoryState m_state;
    mutable QHash<QUuid, qsizetype> m_positions; // of entries; empty: to be made anew
    Observers<> m_observers;
    std::function<void(const QSet<QUuid>&)> m_lost;
    bool m_isAnnouncing = false;
    HistoryWriter m_writer;
    Lifeline m_lifeline;
};

} // namespace Kovrel
