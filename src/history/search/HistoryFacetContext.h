#pragma once

#include "model/HistoryList.h"

#include <QDateTime>
#include <QHash>

#include <vector>

namespace Kovrel {

// What facets depend on besides a capture itself.
struct HistoryFacetContext {
    QDateTime now;              // in the time zone whose days count
    QHash<QUuid, QUuid> listOf; // the list of each capture that is in one

    static HistoryFacetContext of(const std::vector<HistoryList>& lists, const QDateTime& now)
    {
        HistoryFacetContext context{now, {}};
        for (const HistoryList& list : lists)
            for (const QUuid& entry : list.entryIDs)
                context.listOf.insert(entry, list.id);
        return context;
    }
};

} // namespace Kovrel
