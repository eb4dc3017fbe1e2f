#pragma once

#include "model/HistoryEntry.h"
#include "model/HistoryList.h"

#include <QList>
#include <QSet>

#include <vector>

namespace Kovrel {

// All that the history's index holds. A copy costs little: what did not change is shared. Any thread.
struct HistoryState {
    QList<HistoryEntry> entries;    // newest first
    std::vector<HistoryList> lists; // in the user's order

    // Before those of its own date.
    void insert(HistoryEntry entry);
    // Out of entries and lists.
    void remove(const QSet<QUuid>& ids);
    void setListOnly(const QSet<QUuid>& ids, std::optional<bool> listOnly);
    QSet<QUuid> ids() const;

    bool operator==(const HistoryState&) const = default;
};

} // namespace Kovrel
