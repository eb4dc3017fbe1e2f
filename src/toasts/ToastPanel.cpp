#include "toasts/ToastPanel.h"

#include "toasts/ToastFace.h"
#include "toasts/ToastPlacement.h"
#include "ui/tokens/Motion.h"
#include "ui/tokens/ReadingSide.h"
#include "ui/tokens/Typography.h"

#include <QAccessible>
#include <QMouseEvent>

namespace Kovrel {

namespace {

constexpr int turnMilliseconds = 900;

} // namespace

ToastPanel::ToastPanel(ToastContent content, const Display& display, PanelShapes& shapes, bool isComposited)
    : FloatingPanel(shapes, isComposited, Desktops::every)
{
    setMouseTracking(true);
    m_spinning.setStartValue(0.0);
    m_spinning.setEndValue(1.0);
    m_spinning.setDuration(turnMilliseconds);
    m_spinning.setLoopCount(-1);
    connect(&m_spinning, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
    setContent(std::move(content));
    standOn(display);
}

void ToastPanel::setContent(ToastContent content)
{
    m_content = std::move(content);
    setAccessibleName(m_content.message);
    setAccessibleDescription(m_content.subtitle.value_or(QString()));
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
    spin();
    update();
}

void ToastPanel::standOn(const Display& display)
{
    place(display, display.toPixels(ToastPlacement::card(display, Typography::scale())));
}

// Only while it is seen: at rest no timer runs.
void ToastPanel::spin()
{
    if (m_content.showsSpinner && isVisible() && !Motion::shared().isReduced())
        m_spinning.start();
    else
        m_spinning.stop();
}

void ToastPanel::paintContent(QPainter& painter, const QRectF& card)
{
    const bool isSpinning = m_spinning.state() == QAbstractAnimation::Running;
    ToastFace::paint(painter, card, m_content, isSpinning ? m_spinning.currentValue().toDouble() : 0);
    if (m_isPointerInside)
        ToastFace::paintCloseButton(painter, closeCentre(), m_hovered == Part::closeButton);
}

// The card's corner, or as near to it as the button has room.
QPointF ToastPanel::closeCentre() const
{
    constexpr double room = ToastFace::closeSize / 2 + 1;
    const QRectF corner = ReadingSide::placed({card().topLeft(), QSizeF(0, 0)}, card());
    return {std::clamp(corner.left(), room, width() - room), std::max(corner.top(), room)};
}

QRectF ToastPanel::closeSquare() const
{
    constexpr double side = ToastPlacement::closeSquare;
    return QRectF(closeCentre() - QPointF(side, side) / 2, QSizeF(side, side)) & QRectF(rect());
}

std::vector<QRectF> ToastPanel::inputAreas() const
{
    return hasSettled() ? std::vector{card(), closeSquare()} : std::vector<QRectF>();
}

ToastPanel::Part ToastPanel::partAt(QPointF point) const
{
    if (!hasSettled())
        return Part::none;
    if (closeSquare().contains(point))
        return Part::closeButton;
    return card().contains(point) ? Part::card : Part::none;
}

void ToastPanel::setPointerInside(bool isInside)
{
    if (std::exchange(m_isPointerInside, isInside) == isInside)
        return;
    update();
    Q_EMIT pointerInsideChanged();
}

bool ToastPanel::event(QEvent* event)
{
    if (event->type() == QEvent::Enter)
        setPointerInside(hasSettled());
    if (event->type() == QEvent::Leave)
        setPointerInside(false);
    if (event->type() == QEvent::Show)
        spin();
    return FloatingPanel::event(event);
}

void ToastPanel::mouseMoveEvent(QMouseEvent* event)
{
    const Part part = partAt(event->position());
    if (std::exchange(m_hovered, part) != part)
        update();
}

void ToastPanel::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_pressed = partAt(event->position());
}

void ToastPanel::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const Part pressed = std::exchange(m_pressed, Part::none);
    if (pressed == Part::none || pressed != partAt(event->position()))
        return;
    if (pressed == Part::closeButton)
        Q_EMIT closeClicked();
    else
        Q_EMIT tapped();
}

void ToastPanel::hideEvent(QHideEvent*)
{
    setPointerInside(false);
    spin();
}

} // namespace Kovrel
