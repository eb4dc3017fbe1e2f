#include "historywindow/search/FilterChip.h"

#include "ui/Symbols.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"
#include "ui/tokens/Typography.h"

#include <QPainter>

namespace Kovrel {

namespace {

constexpr QSize padding(9, 3);
constexpr int dotSide = 8;
constexpr int crossSide = 7;

} // namespace

FilterChip::FilterChip(const QString& title, std::optional<QColor> color) : Button(title), m_color(color)
{
    setFocusPolicy(Qt::TabFocus);
    setToolTip(tr("Remove this filter"));
    setAccessibleDescription(toolTip());
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

int FilterChip::dotWidth() const
{
    return m_color ? dotSide + Spacing::small : 0;
}

QSize FilterChip::sizeHint() const
{
    const QSize title = QFontMetrics(Typography::font(TextStyle::caption)).size(Qt::TextSingleLine, text());
    return QSize(dotWidth() + title.width() + Spacing::small + crossSide, title.height()) + 2 * padding;
}

void FilterChip::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(hasFocus() ? QPen(theme.focusRing, Stroke::focusRing) : QPen(theme.cardEdge, Stroke::hairline));
    painter.setBrush(ofState(theme.accentGround, theme.hoverGround, theme.pressedGround));
    const QRectF ground = QRectF(rect()).adjusted(1, 1, -1, -1);
    painter.drawRoundedRect(ground, ground.height() / 2, ground.height() / 2);
    const QRect content = rect().adjusted(padding.width(), 0, -padding.width(), 0);
    if (m_color) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(*m_color);
        painter.drawEllipse(content.left(), content.center().y() - dotSide / 2 + 1, dotSide, dotSide);
    }
    painter.setFont(Typography::font(TextStyle::caption));
    painter.setPen(theme.accentText);
    painter.drawText(content.adjusted(dotWidth(), 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, text());
    const QRectF cross(content.right() - crossSide + 1, content.center().y() - crossSide / 2.0 + 0.5, crossSide,
                       crossSide);
    Symbols::paint(painter, "xmark", cross, theme.accentText);
}

} // namespace Kovrel
