#include "ui/PrimaryButton.h"

#include "ui/tokens/Theme.h"
#include "ui/tokens/Typography.h"

#include <QPainter>

namespace Kovrel {

namespace {

constexpr QSize padding(18, 12);

} // namespace

PrimaryButton::PrimaryButton(const QString& text) : Button(text)
{
    setCursor(Qt::PointingHandCursor);
}

QSize PrimaryButton::sizeHint() const
{
    const QFontMetrics metrics(Typography::font(TextStyle::emphasis));
    return metrics.size(Qt::TextSingleLine, text()) + 2 * padding;
}

void PrimaryButton::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    const QColor ground = ofState(theme.accent, theme.accentHovered, theme.accentPressed);
    paintGround(painter, isEnabled() ? ground : theme.separator, theme.onAccent);
    painter.setFont(Typography::font(TextStyle::emphasis));
    painter.setPen(isEnabled() ? theme.onAccent : theme.disabledText);
    painter.drawText(rect(), Qt::AlignCenter, text());
}

} // namespace Kovrel
