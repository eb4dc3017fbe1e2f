#include "history/HistoryTrash.h"

#include "history/records/HistoryLists.h"

namespace Kovrel {

HistoryTrash::HistoryTrash(MainLoop& loop, HistoryRecords& records, std::chrono::milliseconds undoTime,
                           std::function<void(const QSet<QUuid>&)> lapsed)
    : m_loop(loop), m_records(records), m_undoTime(undoTime), m_lapsed(std::move(lapsed))
{
}

HistoryTrash::~HistoryTrash()
{
    m_loop.cancel(m_timer);
}

void HistoryTrash::take(const QSet<QUuid>& ids, const QSet<QUuid>& hidden)
{
    lapse();
    noteEntries(ids);
    noteHidden(hidden);
    if (isEmpty())
        return;
    noteLists(ids);
    m_records.change([&](HistoryState& state) {
        state.remove(ids);
        state.setListOnly(m_hidden, true);
    });
    m_timer = m_loop.after(m_undoTime, [this] { lapse(); });
}

void HistoryTrash::noteEntries(const QSet<QUuid>& ids)
{
    const QList<HistoryEntry>& entries = m_records.state().entries;
    std::ranges::copy_if(entries, std::back_inserter(m_entries),
                         [&ids](const HistoryEntry& entry) { return ids.contains(entry.id); });
}

// Those that were hidden before stay so.
void HistoryTrash::noteHidden(const QSet<QUuid>& ids)
{
    for (const QUuid id : ids)
        if (const HistoryEntry* entry = m_records.entry(id); entry && entry->isInTimeline())
            m_hidden.insert(id);
}

void HistoryTrash::noteLists(const QSet<QUuid>& ids)
{
    for (const HistoryList& list : m_records.state().lists)
        for (size_t position = 0; position < list.entryIDs.size(); ++position)
            if (ids.contains(list.entryIDs[position]))
                m_places.push_back({list.id, position, list.entryIDs[position]});
}

void HistoryTrash::restore()
{
    m_loop.cancel(std::exchange(m_timer, 0));
    const auto entries = std::exchange(m_entries, {});
    const auto places = std::exchange(m_places, {});
    const auto hidden = std::exchange(m_hidden, {});
    m_records.change([&](HistoryState& state) {
        state.setListOnly(hidden, std::nullopt);
        std::for_each(entries.crbegin(), entries.crend(), [&](const HistoryEntry& entry) { state.insert(entry); });
        for (const Place& place : places)
            if (HistoryList* list = HistoryLists::find(state.lists, place.list)) {
                auto& ids = list->entryIDs;
                ids.insert(ids.begin() + qptrdiff(std::min(place.position, ids.size())), place.id);
            }
    });
}

QSet<QUuid> HistoryTrash::ids() const
{
    return HistoryState{.entries = m_entries}.ids();
}

void HistoryTrash::lapse()
{
    m_loop.cancel(std::exchange(m_timer, 0));
    const QSet<QUuid> ids = this->ids();
    m_entries.clear();
    m_places.clear();
    m_hidden.clear();
    if (!ids.isEmpty())
        m_lapsed(ids);
}

} // namespace Kovrel
