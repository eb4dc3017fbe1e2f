#include "historywindow/grid/HistoryDelegate.h"

#include "historywindow/grid/EntryTexts.h"
#include "historywindow/grid/HistoryModel.h"
#include "ui/Ground.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"
#include "ui/tokens/Typography.h"

#include <QPainter>

namespace Kovrel {

namespace {

constexpr QSize picture(184, 116);
constexpr int inset = 6;   // from the ground's edge to the picture
constexpr int outset = 7;  // around a cell
constexpr int textGap = 6; // between the picture and its texts

int lineHeight(TextStyle style)
{
    return QFontMetrics(Typography::font(style)).height();
}

// Below the picture.
QRect textsOf(const QRect& cell)
{
    return cell.adjusted(outset, outset + picture.height() + 2 * inset + textGap, -outset, -outset);
}

void drawLine(QPainter& painter, QRect& rest, TextStyle style, const QColor& color, const QString& text)
{
    const QFont font = Typography::font(style);
    const QFontMetrics metrics(font);
    painter.setFont(font);
    painter.setPen(color);
    // A name is read in its own direction, whatever the window's is: else its marks change their places.
    painter.setLayoutDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    painter.drawText(rest, Qt::AlignHCenter | Qt::AlignTop, metrics.elidedText(text, Qt::ElideMiddle, rest.width()));
    rest.setTop(rest.top() + metrics.height());
}

} // namespace

QSize HistoryDelegate::pictureSize()
{
    return picture;
}

QSize HistoryDelegate::cellSize()
{
    const int texts = textGap + lineHeight(TextStyle::control) + lineHeight(TextStyle::caption);
    return picture + QSize(2 * (inset + outset), 2 * (inset + outset) + texts);
}

void HistoryDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const Theme& theme = Theme::current();
    const auto& entry = static_cast<const HistoryModel*>(index.model())->entry(index.row());
    const QRect cell = option.rect.adjusted(outset, outset, -outset, -outset);
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const bool isHovered = option.state.testFlag(QStyle::State_MouseOver);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    QRect ground(cell.topLeft(), QSize(cell.width(), picture.height() + 2 * inset));
    Ground{isSelected  ? theme.accentGround
           : isHovered ? theme.hoverGround
                       : theme.card,
           isSelected ? theme.accent : theme.cardEdge, Radius::group}
        .paint(*painter, ground);
    const QImage thumbnail = m_thumbnails.picture(entry.id);
    if (!thumbnail.isNull()) {
        const QSizeF size = QSizeF(thumbnail.size()) / painter->device()->devicePixelRatioF();
        QRectF place({}, size);
        place.moveCenter(QRectF(ground).center());
        painter->drawImage(QRectF(place.topLeft().toPoint(), size), thumbnail);
    }
    if (isSelected || option.state.testFlag(QStyle::State_HasFocus)) {
        painter->setPen(QPen(isSelected ? theme.accent : theme.focusRing, Stroke::focusRing));
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(ground, Radius::group, Radius::group);
    }
    QRect texts = textsOf(option.rect);
    drawLine(*painter, texts, TextStyle::control, theme.text, EntryTexts::title(entry));
    drawLine(*painter, texts, TextStyle::caption, theme.secondaryText,
             EntryTexts::moment(entry.date, QDateTime::currentDateTime(), QLocale()));
    painter->restore();
}

void HistoryDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                           const QModelIndex&) const
{
    QRect line = textsOf(option.rect);
    line.setHeight(std::max(lineHeight(TextStyle::control), editor->sizeHint().height()));
    editor->setGeometry(line);
}

} // namespace Kovrel
