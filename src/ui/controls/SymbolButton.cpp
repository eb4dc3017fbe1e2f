#include "ui/controls/SymbolButton.h"

#include "ui/Symbols.h"
#include "ui/tokens/Theme.h"

#include <QPainter>

namespace Kovrel {

namespace {

constexpr int side = 34;
constexpr double symbolSide = 16;

} // namespace

SymbolButton::SymbolButton(const QString& symbol, const QString& name) : Button(QString()), m_symbol(symbol)
{
    setToolTip(name);
    setAccessibleName(name);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize SymbolButton::sizeHint() const
{
    return {side, side};
}

void SymbolButton::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    const QColor ground = isChecked() ? theme.accent : ofState(Qt::transparent, theme.hoverGround, theme.pressedGround);
    paintGround(painter, ground, isChecked() ? theme.onAccent : theme.focusRing);
    QRectF box(0, 0, symbolSide, symbolSide);
    box.moveCenter(QRectF(rect()).center());
    const QColor color = !isEnabled() ? theme.disabledText : isChecked() ? theme.onAccent : theme.text;
    Symbols::paint(painter, m_symbol, box, color);
}

} // namespace Kovrel
