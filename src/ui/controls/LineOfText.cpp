#include "ui/controls/LineOfText.h"

#include <QPainter>
#include <QStyle>

namespace Kovrel {

void LineOfText::paint(QPainter& painter, const QRect& place, const QString& text, Qt::TextElideMode mode,
                       Qt::LayoutDirection layout)
{
    const Qt::Alignment begin = QStyle::visualAlignment(layout, Qt::AlignLeft | Qt::AlignVCenter);
    const Qt::LayoutDirection before = painter.layoutDirection();
    painter.setLayoutDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    painter.drawText(place, int(begin | Qt::AlignAbsolute),
                     painter.fontMetrics().elidedText(text, mode, place.width()));
    painter.setLayoutDirection(before);
}

} // namespace Kovrel
