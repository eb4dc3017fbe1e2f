#pragma once

class QMenu;
class QPoint;
class QWidget;

namespace Kovrel {

// Where menus open: they begin on the side from which is read. Global points of the screen. Main thread.
namespace MenuPlace {

// Where a menu of a button begins.
QPoint below(const QWidget& button);

void open(QMenu& menu, QPoint begin);

} // namespace MenuPlace

} // namespace Kovrel
