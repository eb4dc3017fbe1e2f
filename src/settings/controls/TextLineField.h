#pragma once

#include "settings/controls/SettingField.h"

namespace Kovrel {

class LineField;

class TextLineField : public SettingField {
    Q_OBJECT

public:
    TextLineField();

    void setValue(const QVariant& value) override;

private:
    LineField* m_line;
};

} // namespace Kovrel
