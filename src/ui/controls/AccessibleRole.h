#pragma once

#include <QAccessible>

class QWidget;

namespace Kovrel {

namespace AccessibleRole {

// What screen readers take a widget for that paints itself and is none of the toolkit's controls. Main thread.
void set(QWidget& widget, QAccessible::Role role);

} // namespace AccessibleRole

} // namespace Kovrel
