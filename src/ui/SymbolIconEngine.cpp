#include "ui/SymbolIconEngine.h"

#include "ui/Symbols.h"
#include "ui/tokens/Theme.h"

#include <QPainter>

#include <algorithm>

namespace Kovrel {

namespace {

// Lines reach a little beyond the box of a symbol.
constexpr double inset = 0.1;

QColor colorFor(QIcon::Mode mode)
{
    const Theme& theme = Theme::current();
    switch (mode) {
    case QIcon::Disabled:
        return theme.disabledText;
    case QIcon::Selected:
        return theme.onAccent;
    case QIcon::Normal:
    case QIcon::Active:
        break;
    }
    return theme.text;
}

} // namespace

void SymbolIconEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State)
{
    const double side = std::min(rect.width(), rect.height()) * (1 - 2 * inset);
    QRectF box(0, 0, side, side);
    box.moveCenter(QRectF(rect).center());
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    Symbols::paint(*painter, m_name, box, colorFor(mode));
    painter->restore();
}

QPixmap SymbolIconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state)
{
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect({}, size), mode, state);
    return pixmap;
}

} // namespace Kovrel
