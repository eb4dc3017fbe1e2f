#pragma once

#include "historywindow/grid/ThumbnailFeed.h"

#include <QStyledItemDelegate>

namespace Kovrel {

// Paints a capture of the grid: its thumbnail on a ground of its own, below it what it is called and when it was taken.
// Lengths are points. Main thread.
class HistoryDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    explicit HistoryDelegate(const ThumbnailFeed& thumbnails) : m_thumbnails(thumbnails) {}

    // Of a whole cell, what surrounds it included; it grows with the desktop's font.
    static QSize cellSize();
    // The largest picture that a cell has room for.
    static QSize pictureSize();

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override { return cellSize(); }

    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

private:
    const ThumbnailFeed& m_thumbnails;
};

} // namespace Kovrel
