#include "ui/Ground.h"

#include "ui/tokens/Metrics.h"

#include <QPainter>

namespace Kovrel {

void Ground::paint(QPainter& painter, const QRectF& rect) const
{
    const double inset = Stroke::hairline / 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(edge, Stroke::hairline));
    painter.setBrush(color);
    painter.drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), radius, radius);
}

} // namespace Kovrel
