#pragma once

#include "settings/rows/SettingsPage.h"

#include <QWidget>

class QVBoxLayout;

namespace Kovrel {

class SettingRowView;

// Settings below each other: those of a tab, or those that were found. Main thread.
class SettingsPageView : public QWidget {
    Q_OBJECT

public:
    enum class Kind { tab, found };

    SettingsPageView(const std::vector<SettingsPage>& pages, Kind kind);

    // Shows what is set now.
    void refresh();
    // Puts the keyboard on the first setting that can be changed.
    void takeFocus();

private:
    void addPage(const SettingsPage& page);
    void addGroup(const SettingGroup& group);
    void addResetButton();
    void resetAll();

    QVBoxLayout* m_layout = nullptr;
    std::vector<SettingRowView*> m_rows;
    QWidget* m_resetButton = nullptr;
};

} // namespace Kovrel
