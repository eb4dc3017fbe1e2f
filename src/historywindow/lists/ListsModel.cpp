#include "historywindow/lists/ListsModel.h"

#include "historywindow/grid/HistoryModel.h"

#include <QColor>
#include <QMimeData>

#include <algorithm>

namespace Kovrel {

void ListsModel::set(Timeline timeline, std::vector<HistoryList> lists)
{
    if (timeline == m_timeline && lists == m_lists)
        return;
    const bool isSameShape = std::ranges::equal(lists, m_lists, {}, &HistoryList::id, &HistoryList::id);
    if (!isSameShape)
        beginResetModel();
    m_timeline = std::move(timeline);
    m_lists = std::move(lists);
    if (isSameShape)
        Q_EMIT dataChanged(index(0), index(rowCount() - 1));
    else
        endResetModel();
}

std::optional<QUuid> ListsModel::listAt(int row) const
{
    return row < 1 || row > int(m_lists.size()) ? std::nullopt : std::optional(list(row).id);
}

int ListsModel::row(std::optional<QUuid> list) const
{
    const auto found = list ? std::ranges::find(m_lists, *list, &HistoryList::id) : m_lists.end();
    return found == m_lists.end() ? 0 : int(found - m_lists.begin()) + 1;
}

int ListsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_lists.size()) + 1;
}

QVariant ListsModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const bool isTimeline = index.row() == 0;
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return isTimeline ? m_timeline.name : list(index.row()).name;
    case colorRole:
        return isTimeline ? QVariant() : QVariant(QColor(list(index.row()).colorHex));
    case countRole:
        return isTimeline ? m_timeline.count : int(list(index.row()).entryIDs.size());
    case Qt::AccessibleDescriptionRole:
        return tr("%n captures", nullptr, data(index, countRole).toInt());
    default:
        return {};
    }
}

bool ListsModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    const QString name = value.toString().trimmed();
    if (role != Qt::EditRole || index.row() == 0 || name.isEmpty())
        return false;
    Q_EMIT listRenamed(list(index.row()).id, name);
    return true;
}

Qt::ItemFlags ListsModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::ItemIsDropEnabled; // between the rows
    const Qt::ItemFlags flags =
        Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDropEnabled | Qt::ItemNeverHasChildren;
    return index.row() == 0 ? flags : flags | Qt::ItemIsEditable | Qt::ItemIsDragEnabled;
}

// --- Drag and drop

QStringList ListsModel::mimeTypes() const
{
    return {HistoryModel::idsType, listType};
}

QMimeData* ListsModel::mimeData(const QModelIndexList& indexes) const
{
    auto* data = new QMimeData;
    for (const QModelIndex& index : indexes)
        if (const auto list = listAt(index.row()))
            data->setData(listType, list->toByteArray());
    return data;
}

// Captures go onto a row, lists between rows.
bool ListsModel::canDropMimeData(const QMimeData* data, Qt::DropAction, int row, int, const QModelIndex& parent) const
{
    if (data->hasFormat(HistoryModel::idsType))
        return parent.isValid();
    return data->hasFormat(listType) && !parent.isValid() && row > 0;
}

bool ListsModel::dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                              const QModelIndex& parent)
{
    if (!canDropMimeData(data, action, row, column, parent))
        return false;
    if (const QList<QUuid> captures = HistoryModel::idsOf(*data); !captures.isEmpty()) {
        if (const auto list = listAt(parent.row()))
            Q_EMIT capturesFiled(captures, *list);
        else
            Q_EMIT capturesRestored(captures);
        return true;
    }
    const QUuid list = QUuid::fromString(QLatin1StringView(data->data(listType)));
    const int from = this->row(list);
    if (from > 0)
        Q_EMIT listMoved(list, row - 1 - (from < row ? 1 : 0));
    return false; // the model moves the row itself; the view is not to remove it
}

} // namespace Kovrel
