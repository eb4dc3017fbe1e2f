#include "history/records/Retention.h"

#include "history/records/HistoryLists.h"

namespace Kovrel {

int Retention::cap(int setting)
{
    constexpr int usual = 50;
    return setting < 1 ? usual : setting;
}

QSet<QUuid> Retention::surplus(const HistoryState& state, int cap)
{
    if (state.entries.size() <= cap)
        return {};
    const QSet<QUuid> listed = HistoryLists::listed(state.lists);
    QSet<QUuid> tooMany;
    for (int kept = 0; const HistoryEntry& entry : state.entries)
        if (!listed.contains(entry.id) && ++kept > cap)
            tooMany.insert(entry.id);
    return tooMany;
}

} // namespace Kovrel
