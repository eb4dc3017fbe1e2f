#include "history/records/HistoryState.h"

#include "history/records/HistoryLists.h"

namespace Kovrel {

void HistoryState::insert(HistoryEntry entry)
{
    const auto isNotLater = [&entry](const HistoryEntry& other) { return other.date <= entry.date; };
    const auto place = std::find_if(entries.cbegin(), entries.cend(), isNotLater);
    entries.insert(place, std::move(entry));
}

void HistoryState::remove(const QSet<QUuid>& ids)
{
    entries.removeIf([&](const HistoryEntry& entry) { return ids.contains(entry.id); });
    HistoryLists::drop(lists, ids);
}

void HistoryState::setListOnly(const QSet<QUuid>& ids, std::optional<bool> listOnly)
{
    if (ids.isEmpty())
        return;
    for (HistoryEntry& entry : entries)
        if (ids.contains(entry.id))
            entry.listOnly = listOnly;
}

QSet<QUuid> HistoryState::ids() const
{
    QSet<QUuid> all;
    all.reserve(entries.size());
    for (const HistoryEntry& entry : entries)
        all.insert(entry.id);
    return all;
}

} // namespace Kovrel
