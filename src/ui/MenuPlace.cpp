#include "ui/MenuPlace.h"

#include <QMenu>

namespace Kovrel {

QPoint MenuPlace::below(const QWidget& button)
{
    return button.mapToGlobal(QPoint(button.isRightToLeft() ? button.width() : 0, button.height()));
}

void MenuPlace::open(QMenu& menu, QPoint begin)
{
    menu.popup(menu.isRightToLeft() ? begin - QPoint(menu.sizeHint().width(), 0) : begin);
}

} // namespace Kovrel
