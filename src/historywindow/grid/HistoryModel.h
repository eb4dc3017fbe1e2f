#pragma once

#include "model/HistoryEntry.h"

#include <QAbstractListModel>
#include <QHash>
#include <QList>

#include <functional>

namespace Kovrel {

// The captures that a window lists, a row for each. Main thread.
class HistoryModel : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role { idRole = Qt::UserRole };

    // What dragged captures are called among Kovrel's own windows: their ids, one a line.
    static constexpr const char* idsType = "application/x-kovrel-captures";

    // The files that other programs get when a capture is dragged out; empty where they are not ready.
    using DragFile = std::function<QString(QUuid)>;

    explicit HistoryModel(DragFile dragFile) : m_dragFile(std::move(dragFile)) {}

    // Rows that stay keep their selection.
    void setEntries(QList<HistoryEntry> entries);

    const HistoryEntry& entry(int row) const { return m_entries[row]; }

    // -1: not listed.
    int row(QUuid id) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& indexes) const override;

    static QList<QUuid> idsOf(const QMimeData& data);

Q_SIGNALS:
    // Empty: it is to have none.
    void titleGiven(QUuid id, const QString& title);

private:
    void replaceAll(QList<HistoryEntry> entries);
    bool insertInFront(const QList<HistoryEntry>& entries);
    bool updateInPlace(const QList<HistoryEntry>& entries);

    DragFile m_dragFile;
    QList<HistoryEntry> m_entries;
};

} // namespace Kovrel
