#include "ui/controls/Slider.h"

#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"

#include <QPainter>
#include <QStyleOptionSlider>
#include <QWheelEvent>

namespace Kovrel {

namespace {

constexpr double grooveHeight = 4;
constexpr double knobRadius = 7;
constexpr double ringRadius = 9.5;

} // namespace

Slider::Slider() : QSlider(Qt::Horizontal)
{
    setFocusPolicy(Qt::StrongFocus);
    setMinimumHeight(int(2 * (ringRadius + Stroke::focusRing)));
}

// The knob is where the desktop's style takes hold of it.
void Slider::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QRect handle = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
    const QPointF knob(QRectF(handle).center().x(), height() / 2.0);
    QRectF groove(2, 0, width() - 4, grooveHeight);
    groove.moveCenter({width() / 2.0, knob.y()});
    QRectF filled = groove;
    if (option.upsideDown)
        filled.setLeft(knob.x());
    else
        filled.setRight(knob.x());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme.separator);
    painter.drawRoundedRect(groove, grooveHeight / 2, grooveHeight / 2);
    painter.setBrush(isEnabled() ? theme.accent : theme.disabledText);
    painter.drawRoundedRect(filled, grooveHeight / 2, grooveHeight / 2);
    painter.setPen(QPen(isEnabled() ? theme.accent : theme.disabledText, 1.5));
    painter.setBrush(theme.card);
    painter.drawEllipse(knob, knobRadius, knobRadius);
    if (!hasFocus())
        return;
    painter.setPen(QPen(theme.focusRing, Stroke::focusRing));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(knob, ringRadius, ringRadius);
}

void Slider::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

} // namespace Kovrel
