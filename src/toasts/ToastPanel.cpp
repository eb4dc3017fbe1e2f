#include "toasts/ToastPanel.h"

#include "toasts/ToastPlacement.h"
#include "ui/Symbols.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"
#include "ui/tokens/Typography.h"

#include <QMouseEvent>
#include <QPainter>

namespace Kovrel {

namespace {

constexpr double iconSize = 36;
constexpr double padding = Spacing::medium;
constexpr double iconGap = 12;
constexpr double iconInset = 9;

double lineHeight(TextStyle style)
{
    return QFontMetricsF(Typography::font(style)).height();
}

void paintLine(QPainter& painter, const QRectF& line, TextStyle style, const QColor& color, const QString& text,
               Qt::TextElideMode elision)
{
    painter.setFont(Typography::font(style));
    painter.setPen(color);
    painter.drawText(line, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     QFontMetricsF(painter.font()).elidedText(text, elision, line.width()));
}

} // namespace

ToastPanel::ToastPanel(ToastContent content, const Display& display, PanelShapes& shapes, bool isComposited)
    : FloatingPanel(shapes, isComposited, Desktops::every)
{
    setContent(std::move(content));
    place(display, display.toPixels(ToastPlacement::card(display, Typography::scale())));
}

void ToastPanel::setContent(ToastContent content)
{
    m_content = std::move(content);
    setAccessibleName(m_content.message);
    update();
}

void ToastPanel::paintContent(QPainter& painter, const QRectF& card)
{
    const double size = iconSize * Typography::scale();
    const QRectF circle(card.left() + padding, card.center().y() - size / 2, size, size);
    paintIcon(painter, circle);
    paintText(painter, card.adjusted(padding + size + iconGap, 0, -padding, 0));
}

void ToastPanel::paintIcon(QPainter& painter, const QRectF& circle) const
{
    const Theme& theme = Theme::current();
    const bool isWarning = m_content.icon == Symbols::warning;
    const double inset = iconInset * Typography::scale();
    painter.setPen(Qt::NoPen);
    painter.setBrush(isWarning ? theme.warningGround : theme.accentGround);
    painter.drawEllipse(circle);
    Symbols::paint(painter, m_content.icon, circle.adjusted(inset, inset, -inset, -inset),
                   m_content.iconTint.value_or(isWarning ? theme.warning : theme.accentText));
}

void ToastPanel::paintText(QPainter& painter, const QRectF& area) const
{
    const Theme& theme = Theme::current();
    const QString subtitle = m_content.subtitle.value_or(QString());
    if (subtitle.isEmpty()) {
        paintLine(painter, area, TextStyle::emphasis, theme.text, m_content.message, Qt::ElideRight);
        return;
    }
    const double first = lineHeight(TextStyle::emphasis);
    const double second = lineHeight(TextStyle::caption);
    const double top = area.center().y() - (first + Spacing::tight + second) / 2;
    paintLine(painter, {area.x(), top, area.width(), first}, TextStyle::emphasis, theme.text, m_content.message,
              Qt::ElideRight);
    // A path says most at its ends.
    paintLine(painter, {area.x(), top + first + Spacing::tight, area.width(), second}, TextStyle::caption,
              theme.secondaryText, subtitle, Qt::ElideMiddle);
}

void ToastPanel::mouseReleaseEvent(QMouseEvent*)
{
    if (const auto tap = m_content.onTap)
        tap();
    Q_EMIT closeClicked();
}

} // namespace Kovrel
