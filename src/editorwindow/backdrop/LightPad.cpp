#include "editorwindow/backdrop/LightPad.h"

#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"

#include <QMouseEvent>
#include <QPainter>

#include <cmath>

namespace Kovrel {

namespace {

constexpr int side = 92;
constexpr double reach = 36; // of the sun from the middle
constexpr double sunRadius = 6;
constexpr QSizeF card(30, 20);
constexpr double shadowShift = 6;
constexpr double keyStep = 0.1;
constexpr double catches = 0.12; // the front is easily met

ShadowLight bounded(ShadowLight light)
{
    const double length = std::hypot(light.x, light.y);
    if (length < catches)
        return {0, 0};
    return length > 1 ? ShadowLight{light.x / length, light.y / length} : light;
}

} // namespace

LightPad::LightPad()
{
    setFixedSize(side, side);
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(tr("Light"));
    setToolTip(tr("Where the light comes from"));
    setLight({});
}

void LightPad::setLight(ShadowLight light)
{
    m_light = light;
    setAccessibleDescription(tr("from %1 % right, %2 % above").arg(qRound(-100 * light.x)).arg(qRound(100 * light.y)));
    update();
}

void LightPad::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF middle = QRectF(rect()).center();
    painter.setPen(hasFocus() ? QPen(theme.focusRing, Stroke::focusRing) : QPen(theme.separator, Stroke::hairline));
    painter.setBrush(theme.window);
    painter.drawEllipse(middle, side / 2.0 - 2, side / 2.0 - 2);
    const auto draw = [&](QPointF at, const QColor& color) {
        QRectF box(QPointF(), card);
        box.moveCenter(at);
        painter.setBrush(color);
        painter.drawRoundedRect(box, 3, 3);
    };
    painter.setPen(Qt::NoPen);
    draw(middle + shadowShift * QPointF(m_light.x, m_light.y), theme.separator);
    painter.setPen(QPen(theme.secondaryText, Stroke::hairline));
    draw(middle, theme.card);
    painter.setPen(QPen(theme.card, Stroke::focusRing));
    painter.setBrush(isEnabled() ? theme.accent : theme.disabledText);
    painter.drawEllipse(middle - reach * QPointF(m_light.x, m_light.y), sunRadius, sunRadius);
}

void LightPad::choose(ShadowLight light)
{
    setLight(bounded(light));
    Q_EMIT lightChosen(m_light);
}

// The shadow falls away from it.
void LightPad::shineFrom(QPointF place)
{
    const QPointF away = (QRectF(rect()).center() - place) / reach;
    choose({away.x(), away.y()});
}

void LightPad::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        shineFrom(event->position());
}

void LightPad::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons().testFlag(Qt::LeftButton))
        shineFrom(event->position());
}

void LightPad::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        Q_EMIT finished();
}

void LightPad::keyPressEvent(QKeyEvent* event)
{
    const int right = event->key() == Qt::Key_Right ? 1 : event->key() == Qt::Key_Left ? -1 : 0;
    const int down = event->key() == Qt::Key_Down ? 1 : event->key() == Qt::Key_Up ? -1 : 0;
    if (right == 0 && down == 0)
        return QWidget::keyPressEvent(event);
    // Out of the middle in one step, which would catch it else.
    const double step = std::max(keyStep, m_light == ShadowLight{0, 0} ? 2 * catches : 0);
    choose({m_light.x - right * step, m_light.y - down * step});
}

} // namespace Kovrel
