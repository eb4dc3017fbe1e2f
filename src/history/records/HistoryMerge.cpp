#include "history/records/HistoryMerge.h"

#include "history/records/HistoryLists.h"

#include <QHash>

namespace Kovrel {

namespace {

template <class Records>
auto byId(const Records& records)
{
    QHash<QUuid, const typename Records::value_type*> found;
    found.reserve(qsizetype(records.size()));
    for (const auto& record : records)
        found.insert(record.id, &record);
    return found;
}

// One record that all three have.
HistoryEntry merged(const HistoryEntry& base, const HistoryEntry& ours, const HistoryEntry& theirs)
{
    return ours == base ? theirs : ours;
}

// The order is ours, what they have added comes last.
std::vector<QUuid> mergedMembers(const HistoryList& base, const HistoryList& ours, const HistoryList& theirs)
{
    const QSet<QUuid> old(base.entryIDs.begin(), base.entryIDs.end());
    const QSet<QUuid> kept(theirs.entryIDs.begin(), theirs.entryIDs.end());
    std::vector<QUuid> members = ours.entryIDs;
    std::erase_if(members, [&](QUuid id) { return old.contains(id) && !kept.contains(id); });
    for (const QUuid id : theirs.entryIDs)
        if (!old.contains(id))
            members.push_back(id);
    return members;
}

HistoryList merged(const HistoryList& base, const HistoryList& ours, const HistoryList& theirs)
{
    HistoryList list = ours;
    list.name = ours.name == base.name ? theirs.name : ours.name;
    list.colorHex = ours.colorHex == base.colorHex ? theirs.colorHex : ours.colorHex;
    list.entryIDs = mergedMembers(base, ours, theirs);
    return list;
}

// Ours as they have left them, then what they have added.
template <class Records>
std::pair<Records, Records> keptAndAdded(const Records& base, const Records& ours, const Records& theirs)
{
    const auto old = byId(base);
    const auto other = byId(theirs);
    const auto own = byId(ours);
    Records kept;
    for (const auto& record : ours) {
        const auto* before = old.value(record.id);
        const auto* now = other.value(record.id);
        if (before && now)
            kept.push_back(merged(*before, record, *now));
        else if (!before)
            kept.push_back(record);
    }
    Records added;
    for (const auto& record : theirs)
        if (!old.contains(record.id) && !own.contains(record.id))
            added.push_back(record);
    return {kept, added};
}

} // namespace

HistoryState HistoryMerge::merged(const HistoryState& base, const HistoryState& ours, const HistoryState& theirs)
{
    if (base == theirs)
        return ours;
    if (base == ours)
        return theirs;
    auto [entries, addedEntries] = keptAndAdded(base.entries, ours.entries, theirs.entries);
    auto [lists, addedLists] = keptAndAdded(base.lists, ours.lists, theirs.lists);
    HistoryState state{.lists = std::move(lists)};
    const auto isNewer = [](const HistoryEntry& one, const HistoryEntry& other) { return one.date > other.date; };
    std::ranges::merge(entries, addedEntries, std::back_inserter(state.entries), isNewer);
    state.lists.insert(state.lists.end(), addedLists.begin(), addedLists.end());
    HistoryLists::collapseToOneEach(state.lists);
    return state;
}

} // namespace Kovrel
