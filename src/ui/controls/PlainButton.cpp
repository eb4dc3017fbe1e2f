#include "ui/controls/PlainButton.h"

#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"
#include "ui/tokens/Typography.h"

#include <QPainter>

namespace Kovrel {

namespace {

constexpr QSize padding(14, 7);

} // namespace

PlainButton::PlainButton(const QString& text) : Button(text)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize PlainButton::sizeHint() const
{
    const QFontMetrics metrics(Typography::font(TextStyle::control));
    return metrics.size(Qt::TextSingleLine, text()) + 2 * padding;
}

QColor PlainButton::textColor() const
{
    const Theme& theme = Theme::current();
    return isEnabled() ? theme.text : theme.disabledText;
}

void PlainButton::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    paintGround(painter, ofState(theme.card, theme.hoverGround, theme.pressedGround), theme.focusRing);
    painter.setPen(QPen(hasFocus() ? theme.focusRing : theme.separator, Stroke::hairline));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), Radius::control, Radius::control);
    painter.setFont(Typography::font(TextStyle::control));
    painter.setPen(textColor());
    painter.drawText(rect(), Qt::AlignCenter, shownText());
}

} // namespace Kovrel
