#pragma once

#include "commandline/CommandTable.h"
#include "preferences/Preferences.h"
#include "ui/TitledWindows.h"

#include <QMenu>
#include <QSystemTrayIcon>

namespace Kovrel {

// The tray item and its menu: the nine commands with their key combinations, and the open windows. Main thread.
class TrayMenu : public QObject {
    Q_OBJECT

public:
    struct Handlers {
        // Whether a command can be used now; asked each time the menu opens.
        std::function<bool(const MenuEntry&)> isEnabled;
        std::function<void(const MenuEntry&)> perform;
        std::function<bool()> isCountingDown;
        std::function<void()> cancelCountdown;
        std::function<bool()> hasCards;
        std::function<bool()> areCardsHidden; // until the next capture, or until they are shown again
        std::function<void(bool)> hideCards;
        std::function<std::vector<TitledWindows::Entry>()> openWindows;
        std::function<void()> openHome;
        std::function<void()> quit;
    };

    TrayMenu(Preferences& preferences, Handlers handlers);

    // Also where no tray is there yet: the item appears with it.
    void show() { m_item.show(); }

    static bool desktopHasTray() { return QSystemTrayIcon::isSystemTrayAvailable(); }

private:
    void refresh();
    void refreshWindows();

    Preferences& m_preferences;
    Handlers m_handlers;
    QMenu m_menu;
    QMenu m_windowMenu;
    QSystemTrayIcon m_item;
    std::vector<std::pair<QAction*, MenuEntry>> m_commands;
    QAction* m_cancelCountdown = nullptr;
    QAction* m_hideCards = nullptr;
};

} // namespace Kovrel
