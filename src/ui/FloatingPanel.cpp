#include "ui/FloatingPanel.h"

#include "ui/Ground.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Motion.h"
#include "ui/tokens/SoftShadow.h"
#include "ui/tokens/Theme.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPropertyAnimation>
#include <QScreen>

namespace Kovrel {

FloatingPanel::FloatingPanel(PanelShapes& shapes, bool isComposited, Desktops desktops)
    : m_shapes(shapes), m_shadowRoom(isComposited ? SoftShadow::floatingRoom : 0)
{
    setWindowFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::ToolTip | Qt::WindowDoesNotAcceptFocus);
    // A window manager puts a window on one of its desktops; what it does not know of is on all of them.
    setWindowFlag(Qt::BypassWindowManagerHint, desktops == Desktops::every);
    setAttribute(Qt::WA_TranslucentBackground, isComposited);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_DeleteOnClose);
}

void FloatingPanel::placeAtTopRight(const Display& display, QSizeF cardSize, QSizeF margin)
{
    for (QScreen* screen : QGuiApplication::screens()) {
        if (screen->name() != display.name)
            continue;
        const QRectF area = screen->availableGeometry();
        const QPointF topLeft(area.right() - margin.width() - cardSize.width() - m_shadowRoom,
                              area.top() + margin.height() - m_shadowRoom);
        setScreen(screen);
        setGeometry(QRectF(topLeft, cardSize + QSizeF(2 * m_shadowRoom, 2 * m_shadowRoom)).toAlignedRect());
        return;
    }
}

QRectF FloatingPanel::card() const
{
    return QRectF(rect()).adjusted(m_shadowRoom, m_shadowRoom, -m_shadowRoom, -m_shadowRoom);
}

void FloatingPanel::popIn()
{
    setWindowOpacity(0);
    show();
    makeFade(1, Motion::shared().appearing())->start(QAbstractAnimation::DeleteWhenStopped);
}

void FloatingPanel::fadeOut()
{
    QPropertyAnimation* fade = makeFade(0, Motion::shared().disappearing());
    fade->setObjectName("fade");
    connect(fade, &QPropertyAnimation::finished, this, &QWidget::close);
    fade->start(QAbstractAnimation::DeleteWhenStopped);
}

void FloatingPanel::vanish()
{
    m_isEmpty = true;
    repaint();
    hide();
}

void FloatingPanel::reappear()
{
    m_isEmpty = false;
    show();
}

QPropertyAnimation* FloatingPanel::makeFade(double opacity, std::chrono::milliseconds duration)
{
    auto* fade = new QPropertyAnimation(this, "windowOpacity", this);
    fade->setDuration(int(duration.count()));
    fade->setEasingCurve(Motion::easing);
    fade->setEndValue(opacity);
    return fade;
}

void FloatingPanel::showEvent(QShowEvent*)
{
    leaveShadowToOthers();
}

void FloatingPanel::resizeEvent(QResizeEvent*)
{
    if (isVisible())
        leaveShadowToOthers();
}

// A click on what shines through the shadow is meant for that.
void FloatingPanel::leaveShadowToOthers()
{
    const QRectF inside = card();
    const double scale = devicePixelRatioF();
    m_shapes.takeInputOnlyIn(winId(), QRectF(inside.topLeft() * scale, inside.size() * scale).toAlignedRect());
}

void FloatingPanel::paintEvent(QPaintEvent*)
{
    if (m_isEmpty)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintGround(painter);
    paintContent(painter, card());
}

void FloatingPanel::paintGround(QPainter& painter) const
{
    const Theme& theme = Theme::current();
    const bool isComposited = m_shadowRoom > 0;
    const double radius = isComposited ? Radius::card : 0;
    if (isComposited)
        SoftShadow::floating(theme.shadow).paint(painter, card(), radius);
    else
        painter.fillRect(rect(), theme.card);
    Ground{.color = theme.card, .edge = theme.cardEdge, .radius = radius}.paint(painter, card());
}

} // namespace Kovrel
