#include "ui/tokens/SoftShadow.h"

#include <QPainter>

namespace Kovrel {

void SoftShadow::paint(QPainter& painter, const QRectF& caster, double radius) const
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(layer);
    for (int place = layers; place > 0; --place) {
        const double wider = place * step;
        painter.drawRoundedRect(caster.adjusted(-wider, -wider + drop, wider, wider + drop), radius + wider,
                                radius + wider);
    }
}

} // namespace Kovrel
