#pragma once

#include "settings/controls/SettingField.h"
#include "settings/rows/SettingControl.h"

namespace Kovrel {

class ColorWell;
class Label;

class ColorField : public SettingField {
    Q_OBJECT

public:
    explicit ColorField(const SettingControls::Color& kind);

    void setValue(const QVariant& value) override;
    void setTexts(const QString& name, const QString& description) override;

private:
    Label* m_hex;
    ColorWell* m_well;
};

} // namespace Kovrel
