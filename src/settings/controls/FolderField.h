#pragma once

#include "settings/controls/SettingField.h"
#include "settings/rows/SettingControl.h"

namespace Kovrel {

class LineField;

class FolderField : public SettingField {
    Q_OBJECT

public:
    explicit FolderField(SettingControls::Folder kind);

    void setValue(const QVariant& value) override;
    void setTexts(const QString& name, const QString& description) override;

    bool isWide() const override { return true; }

private:
    void choose();

    SettingControls::Folder m_kind;
    LineField* m_path;
    QWidget* m_button;
};

} // namespace Kovrel
