#include "settings/TabButton.h"

#include "ui/Symbols.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"
#include "ui/tokens/Typography.h"

#include <QPainter>
#include <QStyle>

namespace Kovrel {

namespace {

constexpr QSize padding(10, 8);
constexpr int symbolSide = 15;
constexpr int symbolGap = 10;

} // namespace

TabButton::TabButton(const QString& symbol, const QString& title) : Button(title), m_symbol(symbol)
{
    setCheckable(true);
    setAutoExclusive(true); // one of several, also for screen readers
}

QSize TabButton::sizeHint() const
{
    const QFontMetrics metrics(Typography::font(TextStyle::control));
    return metrics.size(Qt::TextSingleLine, text()) + QSize(symbolSide + symbolGap, 0) + 2 * padding;
}

void TabButton::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    const QColor ground = isChecked() ? theme.accent : ofState(Qt::transparent, theme.hoverGround, theme.pressedGround);
    paintGround(painter, ground, isChecked() ? theme.onAccent : theme.focusRing);
    const QRect line = rect().adjusted(padding.width(), 0, -padding.width(), 0);
    const QRect symbol =
        QStyle::alignedRect(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter, {symbolSide, symbolSide}, line);
    Symbols::paint(painter, m_symbol, symbol, isChecked() ? theme.onAccent : theme.secondaryText);
    painter.setFont(Typography::font(TextStyle::control));
    painter.setPen(isChecked() ? theme.onAccent : theme.text);
    const int used = symbolSide + symbolGap;
    const QRect title =
        layoutDirection() == Qt::LeftToRight ? line.adjusted(used, 0, 0, 0) : line.adjusted(0, 0, -used, 0);
    painter.drawText(title, int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter)), text());
}

} // namespace Kovrel
