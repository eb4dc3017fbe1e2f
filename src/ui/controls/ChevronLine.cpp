#include "ui/controls/ChevronLine.h"

#include "ui/Symbols.h"

#include <QPainter>
#include <QStyle>

namespace Kovrel {

void ChevronLine::paint(QPainter& painter, const QRect& place, const QString& text, const QColor& color,
                        const QString& symbol, const QColor& symbolColor, Qt::LayoutDirection direction)
{
    const Qt::Alignment begin = QStyle::visualAlignment(direction, Qt::AlignLeft | Qt::AlignVCenter);
    painter.setPen(color);
    painter.drawText(place, int(begin | Qt::AlignAbsolute), text);
    const QRect chevron =
        QStyle::alignedRect(direction, Qt::AlignRight | Qt::AlignVCenter, {chevronSide, chevronSide}, place);
    Symbols::paint(painter, symbol, chevron, symbolColor);
}

} // namespace Kovrel
