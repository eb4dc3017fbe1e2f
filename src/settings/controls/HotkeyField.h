#pragma once

#include "settings/controls/SettingField.h"
#include "settings/rows/SettingControl.h"

namespace Kovrel {

class HotkeyButton;

// Shows a key combination; a click waits for another one, which is taken from whatever else would answer it.
class HotkeyField : public SettingField {
    Q_OBJECT

public:
    explicit HotkeyField(SettingControls::Hotkey kind);

    void setValue(const QVariant& value) override;

private:
    HotkeyButton* m_button;
};

} // namespace Kovrel
