#include "ui/controls/ChoiceBoxAccessible.h"

#include "ui/controls/ChoiceBox.h"

namespace Kovrel {

namespace {

QAccessibleInterface* make(const QString&, QObject* object)
{
    auto* const box = qobject_cast<ChoiceBox*>(object);
    return box ? new ChoiceBoxAccessible(*box) : nullptr;
}

void tellName(QObject& box)
{
    QAccessibleEvent event(&box, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

} // namespace

ChoiceBoxAccessible::ChoiceBoxAccessible(ChoiceBox& box) : QAccessibleWidget(&box, QAccessible::ComboBox), m_box(box) {}

void ChoiceBoxAccessible::serve(ChoiceBox& box)
{
    QAccessible::installFactory(make); // no second time
    QObject::connect(&box, &QComboBox::currentTextChanged, &box, [&box] { tellName(box); });
}

QString ChoiceBoxAccessible::text(QAccessible::Text kind) const
{
    if (kind == QAccessible::Value)
        return m_box.currentText();
    if (kind != QAccessible::Name)
        return QAccessibleWidget::text(kind);
    const QString purpose = m_box.accessibleName();
    return purpose.isEmpty() ? m_box.currentText() : purpose + ": " + m_box.currentText();
}

QAccessible::State ChoiceBoxAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.hasPopup = true;
    state.expandable = true;
    return state;
}

QStringList ChoiceBoxAccessible::actionNames() const
{
    return QStringList(showMenuAction()) + QAccessibleWidget::actionNames();
}

void ChoiceBoxAccessible::doAction(const QString& name)
{
    if (name == showMenuAction())
        m_box.showPopup();
    else
        QAccessibleWidget::doAction(name);
}

} // namespace Kovrel
