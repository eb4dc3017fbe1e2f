#include "historywindow/grid/HistoryModel.h"

#include "history/search/HistorySearch.h"
#include "historywindow/grid/EntryTexts.h"

#include <QMimeData>
#include <QUrl>

#include <algorithm>

namespace Kovrel {

namespace {

bool haveSameIds(const QList<HistoryEntry>& one, const QList<HistoryEntry>& other)
{
    return std::ranges::equal(one, other, {}, &HistoryEntry::id, &HistoryEntry::id);
}

} // namespace

void HistoryModel::setEntries(QList<HistoryEntry> entries)
{
    if (!entries.isSharedWith(m_entries) && !updateInPlace(entries) && !insertInFront(entries))
        replaceAll(std::move(entries));
}

// A title or a saved path is new; nothing moves.
bool HistoryModel::updateInPlace(const QList<HistoryEntry>& entries)
{
    if (!haveSameIds(entries, m_entries))
        return false;
    const QList<HistoryEntry> before = std::exchange(m_entries, entries);
    for (int row = 0; row < int(entries.size()); ++row)
        if (entries[row] != before[row])
            Q_EMIT dataChanged(index(row), index(row));
    return true;
}

// New captures, the usual change.
bool HistoryModel::insertInFront(const QList<HistoryEntry>& entries)
{
    const qsizetype added = entries.size() - m_entries.size();
    if (added <= 0 || !haveSameIds(entries.mid(added), m_entries))
        return false;
    beginInsertRows({}, 0, int(added) - 1);
    m_entries = entries;
    endInsertRows();
    return true;
}

void HistoryModel::replaceAll(QList<HistoryEntry> entries)
{
    Q_EMIT layoutAboutToBeChanged();
    const QModelIndexList before = persistentIndexList();
    QList<QUuid> ids;
    for (const QModelIndex& index : before)
        ids.append(m_entries[index.row()].id);
    m_entries = std::move(entries);
    QModelIndexList after;
    for (const QUuid& id : ids) {
        const int now = row(id);
        after.append(now < 0 ? QModelIndex() : index(now));
    }
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged();
}

int HistoryModel::row(QUuid id) const
{
    const auto found = std::ranges::find(m_entries, id, &HistoryEntry::id);
    return found == m_entries.end() ? -1 : int(found - m_entries.begin());
}

int HistoryModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_entries.size());
}

QVariant HistoryModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const HistoryEntry& entry = m_entries[index.row()];
    switch (role) {
    case Qt::DisplayRole:
        return EntryTexts::title(entry);
    case Qt::EditRole:
        return entry.title.value_or(QString());
    case Qt::AccessibleDescriptionRole:
        return QString("%1, %2").arg(HistorySearch::label(entry.mode).value_or(QString()),
                                     EntryTexts::fullDate(entry.date, QLocale()));
    case idRole:
        return entry.id;
    default:
        return {};
    }
}

bool HistoryModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || !index.isValid())
        return false;
    Q_EMIT titleGiven(m_entries[index.row()].id, value.toString().trimmed());
    return true;
}

Qt::ItemFlags HistoryModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsDragEnabled |
           Qt::ItemNeverHasChildren;
}

QStringList HistoryModel::mimeTypes() const
{
    return {idsType, "text/uri-list"};
}

QMimeData* HistoryModel::mimeData(const QModelIndexList& indexes) const
{
    auto* data = new QMimeData;
    QByteArray ids;
    QList<QUrl> files;
    for (const QModelIndex& index : indexes) {
        const QUuid id = m_entries[index.row()].id;
        ids += id.toByteArray() + '\n';
        if (const QString file = m_dragFile(id); !file.isEmpty())
            files.append(QUrl::fromLocalFile(file));
    }
    data->setData(idsType, ids);
    if (!files.isEmpty())
        data->setUrls(files);
    return data;
}

QList<QUuid> HistoryModel::idsOf(const QMimeData& data)
{
    QList<QUuid> ids;
    for (const QByteArray& line : data.data(idsType).split('\n'))
        if (const QUuid id = QUuid::fromString(QLatin1StringView(line)); !id.isNull())
            ids.append(id);
    return ids;
}

} // namespace Kovrel
