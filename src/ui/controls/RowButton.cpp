#include "ui/controls/RowButton.h"

#include "ui/tokens/Theme.h"
#include "ui/tokens/Typography.h"

#include <QPainter>
#include <QStyle>

namespace Kovrel {

namespace {

constexpr QSize padding(12, 9);
constexpr int keysGap = 24;

} // namespace

void RowButton::setKeys(const QString& keys)
{
    m_keys = keys;
    setAccessibleDescription(keys);
    updateGeometry();
    update();
}

QSize RowButton::sizeHint() const
{
    const QSize title = QFontMetrics(Typography::font(TextStyle::control)).size(Qt::TextSingleLine, text());
    const QSize keys = QFontMetrics(Typography::font(TextStyle::body)).size(Qt::TextSingleLine, m_keys);
    return QSize(title.width() + keysGap + keys.width(), title.height()) + 2 * padding;
}

void RowButton::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    paintGround(painter, ofState(Qt::transparent, theme.hoverGround, theme.pressedGround), theme.focusRing);
    const QRect line = rect().adjusted(padding.width(), 0, -padding.width(), 0);
    painter.setFont(Typography::font(TextStyle::control));
    painter.setPen(isEnabled() ? theme.text : theme.disabledText);
    painter.drawText(line, int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter)), text());
    painter.setFont(Typography::font(TextStyle::body));
    painter.setPen(isEnabled() ? theme.secondaryText : theme.disabledText);
    // Keys keep their order in every language, also those that are no letters.
    painter.drawText(line,
                     int(QStyle::visualAlignment(layoutDirection(), Qt::AlignRight | Qt::AlignVCenter)) |
                         Qt::TextForceLeftToRight,
                     m_keys);
}

} // namespace Kovrel
