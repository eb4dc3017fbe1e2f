#include "ui/Button.h"

#include "ui/LookChanges.h"
#include "ui/tokens/Metrics.h"

#include <QPainter>

namespace Kovrel {

namespace {

constexpr double ringInset = 3; // so that it is seen on a strong ground as well

} // namespace

Button::Button(const QString& text) : QPushButton(text)
{
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    connect(&LookChanges::shared(), &LookChanges::changed, this, &QWidget::updateGeometry);
}

QColor Button::ofState(const QColor& resting, const QColor& hovered, const QColor& pressed) const
{
    if (!isEnabled())
        return resting;
    return isDown() ? pressed : underMouse() ? hovered : resting;
}

void Button::paintGround(QPainter& painter, const QColor& ground, const QColor& focusRing) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(rect(), Radius::control, Radius::control);
    if (!hasFocus())
        return;
    const double radius = Radius::control - ringInset + Stroke::focusRing / 2;
    painter.setPen(QPen(focusRing, Stroke::focusRing));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(ringInset, ringInset, -ringInset, -ringInset), radius, radius);
}

} // namespace Kovrel
