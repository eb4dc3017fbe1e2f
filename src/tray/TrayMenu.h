#pragma once

#include "hotkeys/CaptureCommands.h"
#include "preferences/Preferences.h"

#include <QMenu>
#include <QSystemTrayIcon>

namespace Kovrel {

// The tray item and its menu: the nine commands with their key combinations, and the open windows. Main thread.
class TrayMenu : public QObject {
    Q_OBJECT

public:
    // One of the program's windows, on the screen or minimised.
    struct OpenWindow {
        QString title;
        bool isActive = false;
        std::function<void()> focus;
    };

    struct Handlers {
        // Whether a command can be used now; asked each time the menu opens.
        std::function<bool(const CaptureCommands::Entry&)> isEnabled;
        std::function<void(const CaptureCommands::Entry&)> perform;
        std::function<bool()> isCountingDown;
        std::function<void()> cancelCountdown;
        std::function<std::vector<OpenWindow>()> openWindows;
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
    std::vector<std::pair<QAction*, CaptureCommands::Entry>> m_commands;
    QAction* m_cancelCountdown = nullptr;
};

} // namespace Kovrel
