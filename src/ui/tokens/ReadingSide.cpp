#include "ui/tokens/ReadingSide.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>

namespace Kovrel {

QRectF ReadingSide::placed(const QRectF& part, const QRectF& whole)
{
    if (QGuiApplication::isLeftToRight())
        return part;
    return part.translated(whole.left() + whole.right() - part.left() - part.right(), 0);
}

QMargins ReadingSide::margins(const QMargins& margins)
{
    if (QGuiApplication::isLeftToRight())
        return margins;
    return {margins.right(), margins.top(), margins.left(), margins.bottom()};
}

void ReadingSide::drawLine(QPainter& painter, const QRectF& room, const QString& text, Qt::TextElideMode elision)
{
    const Qt::Alignment side = QGuiApplication::isLeftToRight() ? Qt::AlignLeft : Qt::AlignRight;
    const Qt::Alignment place = side | Qt::AlignAbsolute | Qt::AlignVCenter;
    const Qt::LayoutDirection before = painter.layoutDirection();
    painter.setLayoutDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    painter.drawText(room, static_cast<int>(place.toInt() | Qt::TextSingleLine),
                     QFontMetricsF(painter.font()).elidedText(text, elision, room.width()));
    painter.setLayoutDirection(before);
}

} // namespace Kovrel
