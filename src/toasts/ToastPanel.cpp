#include "toasts/ToastPanel.h"

#include "ui/SymbolPainter.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPropertyAnimation>
#include <QScreen>

namespace Kovrel {

namespace {

constexpr QSizeF cardSize(344, 64);
constexpr double shadowPad = 30;
constexpr double rightMargin = 12;
constexpr double topMargin = 10;
constexpr double cornerRadius = 16;
constexpr double iconSize = 36;
constexpr double padding = 14;
constexpr int popInMilliseconds = 160;
constexpr int fadeMilliseconds = 220;

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightnessF() < 0.5;
}

// A soft shadow as a stack of faint rounded outlines, each a little wider.
void paintShadow(QPainter& painter, const QRectF& card)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 3));
    for (double reach = 24; reach > 0; reach -= 2) {
        const double radius = cornerRadius + reach;
        painter.drawRoundedRect(card.adjusted(-reach, -reach + 5, reach, reach + 5), radius, radius);
    }
}

QRegion roundedRegion(const QRectF& rect)
{
    QPainterPath path;
    path.addRoundedRect(rect, cornerRadius, cornerRadius);
    return QRegion(path.toFillPolygon().toPolygon());
}

} // namespace

ToastPanel::ToastPanel(ToastContent content, const Display& display, bool isComposited)
    : m_content(std::move(content)), m_shadowRoom(isComposited ? shadowPad : 0)
{
    setWindowFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::ToolTip | Qt::BypassWindowManagerHint |
                   Qt::WindowDoesNotAcceptFocus);
    if (isComposited)
        setAttribute(Qt::WA_TranslucentBackground);
    else
        setMask(roundedRegion(QRectF({}, cardSize)));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_DeleteOnClose);
    setAccessibleName(m_content.message);
    place(display);
}

// The card stands 12 points left of the usable area's right edge and 10 below its top; its shadow may not leave the
// screen.
void ToastPanel::place(const Display& display)
{
    for (QScreen* screen : QGuiApplication::screens()) {
        if (screen->name() != display.name)
            continue;
        const QRectF area = screen->availableGeometry();
        const QPointF topLeft(area.right() - rightMargin - cardSize.width() - m_shadowRoom,
                              area.top() + topMargin - m_shadowRoom);
        setScreen(screen);
        setGeometry(QRectF(topLeft, cardSize + QSizeF(2 * m_shadowRoom, 2 * m_shadowRoom)).toAlignedRect());
        return;
    }
}

void ToastPanel::setContent(ToastContent content)
{
    m_content = std::move(content);
    setAccessibleName(m_content.message);
    update();
}

void ToastPanel::popIn()
{
    setWindowOpacity(0);
    show();
    auto* animation = new QPropertyAnimation(this, "windowOpacity", this);
    animation->setDuration(popInMilliseconds);
    animation->setEndValue(1.0);
    animation->start(QAbstractAnimation::DeleteWhenStopped);
}

void ToastPanel::fadeOut()
{
    auto* animation = new QPropertyAnimation(this, "windowOpacity", this);
    animation->setObjectName("fade");
    animation->setDuration(fadeMilliseconds);
    animation->setEndValue(0.0);
    connect(animation, &QPropertyAnimation::finished, this, &QWidget::close);
    animation->start(QAbstractAnimation::DeleteWhenStopped);
}

void ToastPanel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintCard(painter);
}

void ToastPanel::paintCard(QPainter& painter) const
{
    const QRectF card(QPointF(m_shadowRoom, m_shadowRoom), cardSize);
    if (m_shadowRoom > 0)
        paintShadow(painter, card);
    const bool dark = isDark(palette());
    painter.setPen(QPen(dark ? QColor(255, 255, 255, 28) : QColor(0, 0, 0, 24), 1));
    painter.setBrush(dark ? QColor(44, 44, 48) : QColor(252, 252, 253));
    painter.drawRoundedRect(card.adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);

    const QRectF icon(card.left() + padding, card.center().y() - iconSize / 2, iconSize, iconSize);
    const QColor tint = m_content.iconTint.value_or(QColor("#2F6BFF"));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(tint.red(), tint.green(), tint.blue(), dark ? 60 : 30));
    painter.drawEllipse(icon);
    SymbolPainter::paint(painter, m_content.icon, icon.adjusted(9, 9, -9, -9), dark ? tint.lighter(140) : tint);
    paintText(painter, card.adjusted(2 * padding + iconSize - 2, 0, -padding, 0));
}

void ToastPanel::paintText(QPainter& painter, const QRectF& area) const
{
    const bool dark = isDark(palette());
    QFont messageFont = font();
    messageFont.setPixelSize(14);
    messageFont.setWeight(QFont::DemiBold);
    QFont subtitleFont = font();
    subtitleFont.setPixelSize(12);
    const bool hasSubtitle = m_content.subtitle && !m_content.subtitle->isEmpty();
    const QRectF messageLine = hasSubtitle ? area.adjusted(0, 13, 0, -32) : area;
    const auto line = [&](const QFont& lineFont, const QRectF& rect, const QColor& color, const QString& text) {
        painter.setFont(lineFont);
        painter.setPen(color);
        painter.drawText(rect, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                         QFontMetricsF(lineFont).elidedText(text, Qt::ElideRight, rect.width()));
    };
    line(messageFont, messageLine, dark ? QColor(245, 245, 247) : QColor(28, 28, 30), m_content.message);
    if (hasSubtitle)
        line(subtitleFont, area.adjusted(0, 32, 0, -13), dark ? QColor(174, 174, 178) : QColor(99, 99, 104),
             *m_content.subtitle);
}

void ToastPanel::mouseReleaseEvent(QMouseEvent*)
{
    if (const auto tap = m_content.onTap)
        tap();
    Q_EMIT closeClicked();
}

} // namespace Kovrel
