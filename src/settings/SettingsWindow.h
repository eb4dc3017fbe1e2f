#pragma once

#include "preferences/Preferences.h"
#include "settings/rows/SettingsCatalog.h"
#include "ui/AppWindow.h"

namespace Kovrel {

class Notice;
class RemarkLine;
class ScrollColumn;
class SettingsPageView;
class SettingsSidebar;

// Everything that can be set, on tabs and by searching. A change holds at once; one from elsewhere is seen at once.
// Only what is looked at is built. Main thread.
class SettingsWindow : public AppWindow {
    Q_OBJECT

public:
    SettingsWindow(Preferences& preferences, const std::vector<SettingsPage>& pages);

    // On a tab, or on the one that was looked at last; comes to the front.
    void present(std::optional<SettingsTab> tab = {});
    // Says something about the settings as a whole.
    void showNotice(const QString& text, bool isWarning);
    // Shows what is set now.
    void refresh();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    std::optional<SettingsTab> lastTab() const;
    void showTab(SettingsTab tab);
    void search(const QString& query);
    void showPage();
    void show(SettingsPageView* view);
    void showLastWrite();
    QWidget* makeEmptyResult(const QString& query) const;

    Preferences& m_preferences;
    SettingsCatalog m_catalog;
    SettingsSidebar* m_sidebar = nullptr;
    Notice* m_notice = nullptr;
    QWidget* m_noticePlace = nullptr; // with the room around it
    RemarkLine* m_foot = nullptr;     // why what was changed is not on the disk
    QWidget* m_footPlace = nullptr;
    ScrollColumn* m_area = nullptr;
    SettingsPageView* m_view = nullptr;
    SettingsTab m_tab = SettingsTab::general;
    Subscription m_changes;
    Subscription m_writes;
};

} // namespace Kovrel
