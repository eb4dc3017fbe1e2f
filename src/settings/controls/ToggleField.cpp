#include "settings/controls/ToggleField.h"

#include "ui/controls/ToggleSwitch.h"

namespace Kovrel {

ToggleField::ToggleField() : m_switch(new ToggleSwitch)
{
    add(m_switch);
    connect(m_switch, &QCheckBox::clicked, this, [this](bool isOn) { Q_EMIT changed(isOn); });
}

void ToggleField::setValue(const QVariant& value)
{
    m_switch->setChecked(value.toBool());
}

} // namespace Kovrel
