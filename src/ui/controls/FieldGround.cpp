#include "ui/controls/FieldGround.h"

#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"

#include <QPainter>

namespace Kovrel {

void FieldGround::paint(QPainter& painter, const QRect& rect, const QColor& color, bool hasFocus)
{
    const Theme& theme = Theme::current();
    const double stroke = hasFocus ? Stroke::focusRing : Stroke::hairline;
    const double inset = stroke / 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(hasFocus ? theme.focusRing : theme.separator, stroke));
    painter.setBrush(color);
    painter.drawRoundedRect(QRectF(rect).adjusted(inset, inset, -inset, -inset), Radius::control, Radius::control);
}

} // namespace Kovrel
