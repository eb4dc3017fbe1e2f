#pragma once

#include "settings/controls/SettingField.h"
#include "settings/rows/SettingControl.h"

namespace Kovrel {

class Slider;
class Label;

// The number beside the slider follows it; the setting changes when it is let go.
class SliderField : public SettingField {
    Q_OBJECT

public:
    explicit SliderField(SettingControls::Slider kind);

    void setValue(const QVariant& value) override;

private:
    void showNumber(int position);

    SettingControls::Slider m_kind;
    Slider* m_slider;
    Label* m_number;
};

} // namespace Kovrel
