#pragma once

#include "settings/controls/SettingField.h"
#include "settings/rows/SettingControl.h"

namespace Kovrel {

// Something to do; it has no value.
class ActionField : public SettingField {
    Q_OBJECT

public:
    explicit ActionField(const SettingControls::Action& action);

    void setValue(const QVariant&) override {}

    void setTexts(const QString& name, const QString& description) override;
};

} // namespace Kovrel
