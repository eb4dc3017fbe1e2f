#include "ui/ReadingSide.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <QStyle>

namespace Kovrel {

QRectF ReadingSide::placed(const QRectF& part, const QRectF& whole)
{
    if (QGuiApplication::isLeftToRight())
        return part;
    return part.translated(whole.left() + whole.right() - part.left() - part.right(), 0);
}

void ReadingSide::drawLine(QPainter& painter, const QRectF& room, const QString& text, Qt::TextElideMode elision)
{
    const auto side = QStyle::visualAlignment(QGuiApplication::layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter);
    painter.drawText(room, int(side) | Qt::TextSingleLine,
                     QFontMetricsF(painter.font()).elidedText(text, elision, room.width()));
}

} // namespace Kovrel
