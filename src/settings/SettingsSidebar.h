#pragma once

#include "settings/rows/SettingsTab.h"

#include <QWidget>

#include <map>
#include <vector>

namespace Kovrel {

class LineField;
class TabButton;

// The side of the window: the field to search in, and the tabs. Main thread.
class SettingsSidebar : public QWidget {
    Q_OBJECT

public:
    explicit SettingsSidebar(const std::vector<SettingsTab>& tabs);

    void select(SettingsTab tab);
    void focusSearch();
    // Whether something was there to be cleared.
    bool clearSearch();

Q_SIGNALS:
    void tabChosen(SettingsTab tab);
    void searched(const QString& query);
    // Enter: on to what was found.
    void committed();

private:
    LineField* m_search;
    std::map<SettingsTab, TabButton*> m_tabs;
};

} // namespace Kovrel
