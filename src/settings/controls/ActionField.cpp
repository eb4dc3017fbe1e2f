#include "settings/controls/ActionField.h"

#include "ui/controls/PlainButton.h"

namespace Kovrel {

ActionField::ActionField(const SettingControls::Action& action)
{
    auto* const button = new PlainButton(action.title);
    add(button);
    connect(button, &QPushButton::clicked, this,
            [this, perform = action.perform] { perform(window()->windowHandle()); });
}

// The button's own text is its name.
void ActionField::setTexts(const QString& name, const QString& description)
{
    main()->setAccessibleDescription(description.isEmpty() ? name : name + ". " + description);
}

} // namespace Kovrel
