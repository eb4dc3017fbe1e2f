#include "ui/FloatingPanel.h"

#include "ui/FloatingShadow.h"
#include "ui/Ground.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Motion.h"
#include "ui/tokens/SoftShadow.h"
#include "ui/tokens/Theme.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPropertyAnimation>
#include <QScreen>
#include <QWindow>

#include <cmath>

#include <private/qhighdpiscaling_p.h>
#include <qpa/qplatformwindow.h>
#include <qpa/qwindowsysteminterface.h>

namespace Kovrel {

namespace {

QScreen* screenOf(const Display& display)
{
    const auto screens = QGuiApplication::screens();
    const auto found = std::ranges::find(screens, display.name, &QScreen::name);
    return found == screens.end() ? QGuiApplication::primaryScreen() : *found;
}

QSize wholePoints(QSize pixels, double scale)
{
    return {int(std::lround(pixels.width() / scale)), int(std::lround(pixels.height() / scale))};
}

QSize inPixels(QSize points, double scale)
{
    return {int(std::lround(points.width() * scale)), int(std::lround(points.height() * scale))};
}

} // namespace

FloatingPanel::FloatingPanel(PanelShapes& shapes, bool isComposited, Desktops desktops)
    : m_shapes(shapes), m_shadowRoom(isComposited ? SoftShadow::floatingRoom : 0)
{
    setWindowFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::ToolTip | Qt::WindowDoesNotAcceptFocus);
    // A window manager puts a window on one of its desktops; what it does not know of is on all of them.
    setWindowFlag(Qt::BypassWindowManagerHint, desktops == Desktops::every);
    setAttribute(Qt::WA_TranslucentBackground, isComposited);
    setAttribute(Qt::WA_ShowWithoutActivating);
}

// It keeps its size wherever it goes: a window of another size is painted anew.
void FloatingPanel::place(const Display& display, const QRect& card)
{
    const int room = int(std::lround(m_shadowRoom * display.scale));
    const QRect panel = card.adjusted(-room, -room, room, room);
    const QRectF before = m_card;
    const bool isOfSameScale = std::exchange(m_scale, display.scale) == display.scale;
    m_card = QRectF(QPointF(card.topLeft() - panel.topLeft()) / display.scale, QSizeF(card.size()) / display.scale);
    moveTo(display, panel);
    const QRect shadow = (panel & display.pixelRect).translated(-panel.topLeft());
    setShadowEnd(QRectF(QPointF(shadow.topLeft()) / display.scale, QSizeF(shadow.size()) / display.scale));
    if (m_card == before && isOfSameScale)
        return; // it is only elsewhere
    update();
    shapeInput();
}

void FloatingPanel::setShadowEnd(const QRectF& end)
{
    const QRectF before = std::exchange(m_shadowEnd, end);
    if (before != end)
        update(QRegion(before.toAlignedRect()) ^ QRegion(end.toAlignedRect()));
}

// The toolkit's own coordinates can't tell where a window stands next to a display of another scale, so that it is only
// told on which screen the window is made.
void FloatingPanel::moveTo(const Display& display, const QRect& pixels)
{
    const QSize points = wholePoints(pixels.size(), display.scale);
    if (!testAttribute(Qt::WA_WState_Created)) {
        const QScreen* screen = screenOf(display);
        setGeometry(QRect(screen ? screen->geometry().topLeft() : QPoint(), points));
        create();
    }
    const QRect whole(pixels.topLeft(), inPixels(points, display.scale));
    windowHandle()->handle()->setGeometry(whole);
    // It would hear of that later and, when the panel is shown, put it back to where it believes it to be.
    QWindowSystemInterface::handleGeometryChange<QWindowSystemInterface::SynchronousDelivery>(windowHandle(), whole);
}

QPointF FloatingPanel::rootPixel(QPointF globalPosition) const
{
    return QHighDpi::toNativeGlobalPosition(globalPosition, windowHandle());
}

void FloatingPanel::openUnseen()
{
    m_isEmpty = true;
    setWindowOpacity(0);
    show();
}

void FloatingPanel::appear()
{
    m_isEmpty = false;
    show();
    shapeInput();
    update();
}

void FloatingPanel::popIn()
{
    setWindowOpacity(0);
    show();
    QPropertyAnimation* fade = makeFade(1, Motion::shared().appearing());
    connect(fade, &QPropertyAnimation::finished, this, [this] { setSettled(true); });
    fade->start(QAbstractAnimation::DeleteWhenStopped);
}

void FloatingPanel::fadeOut()
{
    QPropertyAnimation* fade = makeFade(0, Motion::shared().disappearing());
    fade->setObjectName("fade");
    connect(fade, &QPropertyAnimation::finished, this, [this] {
        hideEmpty();
        deleteLater();
    });
    fade->start(QAbstractAnimation::DeleteWhenStopped);
}

void FloatingPanel::vanish()
{
    delete m_fade;
    setSettled(false);
    hideEmpty();
}

void FloatingPanel::hideEmpty()
{
    m_isEmpty = true;
    repaint();
    hide();
}

void FloatingPanel::reappear()
{
    m_isEmpty = false;
    popIn();
}

QPropertyAnimation* FloatingPanel::makeFade(double opacity, std::chrono::milliseconds duration)
{
    delete m_fade;
    setSettled(false);
    m_fade = new QPropertyAnimation(this, "windowOpacity", this);
    m_fade->setDuration(int(duration.count()));
    m_fade->setEasingCurve(Motion::easing);
    m_fade->setEndValue(opacity);
    return m_fade;
}

void FloatingPanel::setSettled(bool hasSettled)
{
    if (std::exchange(m_hasSettled, hasSettled) != hasSettled)
        shapeInput();
}

void FloatingPanel::showEvent(QShowEvent*)
{
    shapeInput();
}

void FloatingPanel::resizeEvent(QResizeEvent*)
{
    shapeInput();
}

void FloatingPanel::shapeInput()
{
    QRegion pixels;
    for (const QRectF& area : m_isEmpty ? std::vector<QRectF>() : inputAreas())
        pixels |= QRectF(area.topLeft() * m_scale, area.size() * m_scale).toAlignedRect();
    m_shapes.takeInputOnlyIn(winId(), pixels);
}

void FloatingPanel::paintEvent(QPaintEvent* event)
{
    if (m_isEmpty)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    // What changes in the middle of the card needs neither its edge nor its shadow.
    const double rim = m_shadowRoom > 0 ? Radius::card : Stroke::hairline;
    if (m_card.adjusted(rim, rim, -rim, -rim).contains(event->rect()))
        painter.fillRect(event->rect(), Theme::current().card);
    else
        paintGround(painter);
    paintContent(painter, m_card);
}

void FloatingPanel::paintGround(QPainter& painter) const
{
    const Theme& theme = Theme::current();
    const bool isComposited = m_shadowRoom > 0;
    const double radius = isComposited ? cornerRadius() : 0;
    if (isComposited)
        paintShadow(painter, radius);
    else
        painter.fillRect(rect(), theme.card);
    Ground{.color = theme.card, .edge = theme.cardEdge, .radius = radius}.paint(painter, m_card);
}

void FloatingPanel::paintShadow(QPainter& painter, double radius) const
{
    painter.save();
    painter.setClipRect(m_shadowEnd);
    FloatingShadow::paint(painter, m_card, radius);
    painter.restore();
}

} // namespace Kovrel
