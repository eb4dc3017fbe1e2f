#pragma once

#include "settings/rows/SettingRow.h"

#include <QWidget>

class QGridLayout;

namespace Kovrel {

class Label;
class RemarkLine;
class SettingField;
class SymbolButton;

// One setting: what it is, its control, the way back to what it was, and what is to be said of it now. Main thread.
class SettingRowView : public QWidget {
    Q_OBJECT

public:
    explicit SettingRowView(SettingRow row);

    // Shows what is set now.
    void refresh();
    // Puts the keyboard on its control; false where that can't be used now.
    bool takeFocus();

    const SettingRow& row() const { return m_row; }

private:
    QWidget* makeTexts();
    QWidget* makeControls();
    void makeResetButton();
    void change(const QVariant& value);
    void write(const QVariant& value);
    void refreshRemark();

    SettingRow m_row;
    Label* m_label = nullptr;
    Label* m_hint = nullptr;
    SettingField* m_field = nullptr;
    SymbolButton* m_reset = nullptr;
    RemarkLine* m_remark = nullptr;
    int m_remarkGeneration = 0; // answers of older ones say nothing
    Subscription m_observed;
};

} // namespace Kovrel
