#pragma once

#include <QSize>
#include <QStyledItemDelegate>

namespace Kovrel {

// The rows of an open choice: as easy to hit as those of a menu, their texts below that of the box. Main thread.
class ChoiceRows : public QStyledItemDelegate {
    Q_OBJECT

public:
    // Around a row's text.
    ChoiceRows(QSize padding, QObject* parent);

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    QSize m_padding;
};

} // namespace Kovrel
