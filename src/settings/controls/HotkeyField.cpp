#include "settings/controls/HotkeyField.h"

#include "settings/controls/HotkeyButton.h"

namespace Kovrel {

HotkeyField::HotkeyField(SettingControls::Hotkey kind) : m_button(new HotkeyButton(std::move(kind)))
{
    add(m_button);
    connect(m_button, &HotkeyButton::recorded, this, [this](qint64 stored) { Q_EMIT changed(stored); });
}

void HotkeyField::setValue(const QVariant& value)
{
    m_button->setCombo(KeyCombo::fromStored(value.toLongLong()));
}

} // namespace Kovrel
