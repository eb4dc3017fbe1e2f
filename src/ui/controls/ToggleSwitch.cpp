#include "ui/controls/ToggleSwitch.h"

#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"

#include <QPainter>

namespace Kovrel {

namespace {

constexpr QSizeF track(38, 22);
constexpr double ringGap = 2; // between the track and the ring of the keyboard's focus
constexpr double knobInset = 3.5;

} // namespace

ToggleSwitch::ToggleSwitch()
{
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize ToggleSwitch::sizeHint() const
{
    const int room = int(2 * (ringGap + Stroke::focusRing));
    return track.toSize() + QSize(room, room);
}

void ToggleSwitch::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QRectF box(QPointF(), track);
    box.moveCenter(QRectF(rect()).center());
    const bool isFull = isChecked() && isEnabled();
    const QColor line = !isEnabled() ? theme.disabledText : isChecked() ? theme.accent : theme.secondaryText;
    const QColor resting = isChecked() ? theme.accent : theme.card;
    const QColor ground = underMouse() ? (isChecked() ? theme.accentHovered : theme.hoverGround) : resting;
    painter.setPen(QPen(line, 1.5));
    painter.setBrush(isEnabled() ? ground : theme.separator);
    painter.drawRoundedRect(box.adjusted(0.75, 0.75, -0.75, -0.75), track.height() / 2, track.height() / 2);
    QRectF knob(0, 0, track.height() - 2 * knobInset, track.height() - 2 * knobInset);
    const bool isAtRight = isChecked() == (layoutDirection() == Qt::LeftToRight);
    knob.moveCenter({isAtRight ? box.right() - track.height() / 2 : box.left() + track.height() / 2, box.center().y()});
    painter.setPen(Qt::NoPen);
    painter.setBrush(isFull ? theme.onAccent : line);
    painter.drawEllipse(knob);
    if (!hasFocus())
        return;
    painter.setPen(QPen(theme.focusRing, Stroke::focusRing));
    painter.setBrush(Qt::NoBrush);
    const double out = ringGap + Stroke::focusRing / 2 - 0.5;
    painter.drawRoundedRect(box.adjusted(-out, -out, out, out), track.height(), track.height());
}

} // namespace Kovrel
