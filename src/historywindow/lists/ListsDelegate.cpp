#include "historywindow/lists/ListsDelegate.h"

#include "historywindow/lists/ListsModel.h"
#include "ui/Symbols.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/ReadingSide.h"
#include "ui/tokens/Theme.h"
#include "ui/tokens/Typography.h"

#include <QPainter>

namespace Kovrel {

namespace {

constexpr int symbolSide = 14;
constexpr int dotSide = 10;
constexpr int rowPadding = 7;

QRect symbolPlace(const QRect& row)
{
    return {row.left() + Spacing::small, row.center().y() - symbolSide / 2, symbolSide, symbolSide};
}

QRect textPlace(const QRect& row)
{
    return row.adjusted(2 * Spacing::small + symbolSide, 0, -Spacing::small, 0);
}

void paintSymbol(QPainter& painter, const QRect& place, const QVariant& color, const Theme& theme)
{
    if (!color.isValid()) {
        Symbols::paint(painter, "square.grid", place, theme.accentText);
        return;
    }
    QRect dot(0, 0, dotSide, dotSide);
    dot.moveCenter(place.center());
    painter.setPen(Qt::NoPen);
    painter.setBrush(color.value<QColor>());
    painter.drawEllipse(dot);
}

} // namespace

QSize ListsDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const
{
    return {0, QFontMetrics(Typography::font(TextStyle::control)).height() + 2 * rowPadding};
}

void ListsDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const Theme& theme = Theme::current();
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const bool isHovered = option.state.testFlag(QStyle::State_MouseOver);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (isSelected || isHovered) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(isSelected ? theme.accentGround : theme.hoverGround);
        painter->drawRoundedRect(option.rect.adjusted(0, 1, 0, -1), Radius::control, Radius::control);
    }
    if (isSelected && option.state.testFlag(QStyle::State_HasFocus)) {
        painter->setPen(QPen(theme.focusRing, Stroke::focusRing));
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(QRectF(option.rect).adjusted(1, 2, -1, -2), Radius::control, Radius::control);
    }
    const auto mirrored = [&](const QRect& whole, const QRect& part) {
        return QStyle::visualRect(option.direction, whole, part);
    };
    paintSymbol(*painter, mirrored(option.rect, symbolPlace(option.rect)), index.data(ListsModel::colorRole), theme);

    const QRect texts = mirrored(option.rect, textPlace(option.rect));
    const QString count = QLocale().toString(index.data(ListsModel::countRole).toInt());
    painter->setFont(Typography::font(TextStyle::caption));
    painter->setPen(theme.secondaryText);
    painter->drawText(texts, Qt::AlignRight | Qt::AlignVCenter, count);
    const int countWidth = painter->fontMetrics().horizontalAdvance(count) + Spacing::small;
    painter->setFont(Typography::font(isSelected ? TextStyle::emphasis : TextStyle::control));
    painter->setPen(theme.text);
    const QRect name = mirrored(texts, texts.adjusted(0, 0, -countWidth, 0));
    ReadingSide::drawLine(*painter, name, index.data().toString());
    painter->restore();
}

void ListsDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option, const QModelIndex&) const
{
    const QRect place = textPlace(option.rect).adjusted(-Spacing::tight, 2, 0, -2);
    editor->setGeometry(QStyle::visualRect(option.direction, option.rect, place));
}

} // namespace Kovrel
