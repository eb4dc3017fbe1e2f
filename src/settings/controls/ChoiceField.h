#pragma once

#include "settings/controls/SettingField.h"
#include "settings/rows/SettingControl.h"

namespace Kovrel {

class ChoiceBox;

// A value that is none of the options is one more of them, as long as it is there.
class ChoiceField : public SettingField {
    Q_OBJECT

public:
    explicit ChoiceField(SettingControls::Choice choice);

    void setValue(const QVariant& value) override;

private:
    SettingControls::Choice m_choice;
    ChoiceBox* m_box;
};

} // namespace Kovrel
