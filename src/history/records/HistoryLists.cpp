#include "history/records/HistoryLists.h"

#include <QCoreApplication>

#include <algorithm>

namespace Kovrel {

namespace {

// Whether a list has this name, or colour.
bool has(const HistoryLists::Lists& lists, QString HistoryList::* field, const QString& value)
{
    return std::ranges::find(lists, value, field) != lists.end();
}

} // namespace

HistoryList* HistoryLists::find(Lists& lists, QUuid list)
{
    const auto found = std::ranges::find(lists, list, &HistoryList::id);
    return found == lists.end() ? nullptr : &*found;
}

const HistoryList* HistoryLists::find(const Lists& lists, QUuid list)
{
    const auto found = std::ranges::find(lists, list, &HistoryList::id);
    return found == lists.end() ? nullptr : &*found;
}

QSet<QUuid> HistoryLists::listed(const Lists& lists)
{
    QSet<QUuid> ids;
    for (const HistoryList& list : lists)
        ids.unite(QSet<QUuid>(list.entryIDs.begin(), list.entryIDs.end()));
    return ids;
}

void HistoryLists::collapseToOneEach(Lists& lists)
{
    QSet<QUuid> seen;
    for (HistoryList& list : lists)
        std::erase_if(list.entryIDs, [&](QUuid id) {
            const bool isSeen = seen.contains(id);
            seen.insert(id);
            return isSeen;
        });
}

void HistoryLists::drop(Lists& lists, const QSet<QUuid>& ids)
{
    for (HistoryList& list : lists)
        std::erase_if(list.entryIDs, [&](QUuid id) { return ids.contains(id); });
}

void HistoryLists::keepOnly(Lists& lists, const QSet<QUuid>& ids)
{
    for (HistoryList& list : lists)
        std::erase_if(list.entryIDs, [&](QUuid id) { return !ids.contains(id); });
}

void HistoryLists::moveInto(Lists& lists, const std::vector<QUuid>& ids, QUuid list)
{
    HistoryList* target = find(lists, list);
    if (!target)
        return;
    drop(lists, QSet<QUuid>(ids.begin(), ids.end()));
    target->entryIDs.insert(target->entryIDs.end(), ids.begin(), ids.end());
    collapseToOneEach(lists);
}

void HistoryLists::reorder(Lists& lists, QUuid list, int position)
{
    const HistoryList* found = find(std::as_const(lists), list);
    if (!found)
        return;
    const HistoryList moved = *found;
    std::erase_if(lists, [list](const HistoryList& other) { return other.id == list; });
    lists.insert(lists.begin() + std::clamp(position, 0, int(lists.size())), moved);
}

QString HistoryLists::defaultName(const Lists& lists)
{
    const QString untitled = QCoreApplication::translate("HistoryLists", "Untitled");
    QString name = untitled;
    for (int number = 2; has(lists, &HistoryList::name, name); ++number)
        name = untitled + ' ' + QString::number(number);
    return name;
}

QString HistoryLists::nextColor(const Lists& lists)
{
    for (const auto& color : HistoryList::palette)
        if (!has(lists, &HistoryList::colorHex, color.hex))
            return color.hex;
    return HistoryList::palette[lists.size() % HistoryList::palette.size()].hex;
}

} // namespace Kovrel
