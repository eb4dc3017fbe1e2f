#include "ui/controls/ChoiceRows.h"

#include <QPainter>

namespace Kovrel {

ChoiceRows::ChoiceRows(QSize padding, QObject* parent) : QStyledItemDelegate(parent), m_padding(padding) {}

QSize ChoiceRows::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem row(option);
    initStyleOption(&row, index);
    return QSize(row.fontMetrics.horizontalAdvance(row.text), row.fontMetrics.height()) + 2 * m_padding;
}

void ChoiceRows::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem row(option);
    initStyleOption(&row, index);
    const bool isSelected = row.state.testFlag(QStyle::State_Selected);
    painter->fillRect(row.rect, row.palette.color(isSelected ? QPalette::Highlight : QPalette::Base));
    painter->setPen(row.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
    painter->setFont(row.font);
    const Qt::Alignment side = QStyle::visualAlignment(row.direction, Qt::AlignLeading);
    painter->drawText(row.rect.adjusted(m_padding.width(), 0, -m_padding.width(), 0),
                      int((side | Qt::AlignVCenter).toInt()) | Qt::TextSingleLine, row.text);
}

} // namespace Kovrel
