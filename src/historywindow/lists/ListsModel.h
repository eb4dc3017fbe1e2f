#pragma once

#include "model/HistoryList.h"

#include <QAbstractListModel>

#include <optional>

namespace Kovrel {

// What the side of the window offers to look at: the timeline, then the user's lists. Captures can be dropped on lists,
// and lists dragged to another place. Main thread.
class ListsModel : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role { colorRole = Qt::UserRole, countRole };

    struct Timeline {
        QString name;
        int count = 0;
        bool operator==(const Timeline&) const = default;
    };

    void set(Timeline timeline, std::vector<HistoryList> lists);

    // None: the timeline.
    std::optional<QUuid> listAt(int row) const;
    int row(std::optional<QUuid> list) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& indexes) const override;

    Qt::DropActions supportedDropActions() const override { return Qt::CopyAction | Qt::MoveAction; }

    bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                         const QModelIndex& parent) const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

Q_SIGNALS:
    void listRenamed(QUuid list, const QString& name);
    // Its place among the other lists.
    void listMoved(QUuid list, int position);
    void capturesFiled(const QList<QUuid>& captures, QUuid list);
    void capturesRestored(const QList<QUuid>& captures);

private:
    static constexpr const char* listType = "application/x-kovrel-list";

    const HistoryList& list(int row) const { return m_lists[size_t(row - 1)]; }

    Timeline m_timeline;
    std::vector<HistoryList> m_lists;
};

} // namespace Kovrel
