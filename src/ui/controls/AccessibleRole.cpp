#include "ui/controls/AccessibleRole.h"

#include <QAccessibleWidget>

namespace Kovrel {

namespace {

constexpr const char* property = "accessibleRole";

QAccessibleInterface* make(const QString&, QObject* object)
{
    const QVariant role = object->property(property);
    auto* const widget = role.isValid() ? qobject_cast<QWidget*>(object) : nullptr;
    return widget ? new QAccessibleWidget(widget, QAccessible::Role(role.toInt())) : nullptr;
}

} // namespace

void AccessibleRole::set(QWidget& widget, QAccessible::Role role)
{
    QAccessible::installFactory(make); // no second time
    widget.setProperty(property, int(role));
    // One that is known already, by its name, would stay what it is.
    if (QAccessibleInterface* const known = QAccessible::queryAccessibleInterface(&widget))
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(known));
}

} // namespace Kovrel
