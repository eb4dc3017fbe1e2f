#pragma once

#include "settings/controls/SettingField.h"
#include "settings/rows/SettingControl.h"

class QGridLayout;

namespace Kovrel {

class CheckBox;

// The languages that are installed, each on or off, and what brings those that are missing.
class LanguagesField : public SettingField {
    Q_OBJECT

public:
    explicit LanguagesField(SettingControls::Languages kind);

    void setValue(const QVariant& value) override;
    void setTexts(const QString& name, const QString& description) override;

    bool isWide() const override { return true; }

private:
    void load();
    void show(const std::vector<SettingControls::Language>& languages);
    void addInstalled(const SettingControls::Language& language);
    void addMissing(const SettingControls::Language& language);
    void addNote(const QString& text);
    void refresh();
    void toggle(const QString& code, bool isOn);

    SettingControls::Languages m_kind;
    QStringList m_chosen;
    QString m_name;
    QGridLayout* m_grid = nullptr;
    std::vector<std::pair<QString, CheckBox*>> m_boxes;
    bool m_isAsked = false;
};

} // namespace Kovrel
