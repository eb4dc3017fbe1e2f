#pragma once

#include "settings/controls/SettingField.h"

namespace Kovrel {

class ToggleSwitch;

class ToggleField : public SettingField {
    Q_OBJECT

public:
    ToggleField();

    void setValue(const QVariant& value) override;

private:
    ToggleSwitch* m_switch;
};

} // namespace Kovrel
