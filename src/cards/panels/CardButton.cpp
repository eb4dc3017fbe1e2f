#include "cards/panels/CardButton.h"

#include "cards/panels/CardPainting.h"
#include "ui/tokens/CardTokens.h"

#include <QPainter>

namespace Kovrel {

CardButton::CardButton(const QString& symbol, const QString& title, double size, QWidget* parent)
    : QAbstractButton(parent)
{
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
    resize(QSizeF(size, size).toSize());
    setLook(symbol, title, CardTokens::onGlass);
}

void CardButton::setLook(const QString& symbol, const QString& title, const QColor& color)
{
    m_symbol = symbol;
    m_color = color;
    setAccessibleName(title);
    setToolTip(title);
    update();
}

void CardButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QColor ground = isDown()       ? CardTokens::glassPressed
                          : underMouse() ? CardTokens::glassHovered
                                         : CardTokens::glass;
    CardPainting::disc(painter, rect(), ground, m_symbol, m_color);
}

} // namespace Kovrel
