#pragma once

#include "commandline/CommandTable.h"
#include "preferences/Preferences.h"
#include "ui/AppWindow.h"

namespace Kovrel {

class Label;
class Notice;
class PrimaryButton;
class RowButton;

// The program's own window: first steps, what stands in the way of capturing, and every command with its keys, for
// desktops without a tray too. Main thread.
class HomeWindow : public AppWindow {
    Q_OBJECT

public:
    struct Handlers {
        std::function<bool()> isSignedIn;
        std::function<void()> signIn;
        // Why nothing can be captured on this desktop; empty where it can.
        std::function<QString()> obstacle;
        std::function<bool(const MenuEntry&)> isEnabled;
        std::function<void(const MenuEntry&)> perform;
    };

    HomeWindow(Preferences& preferences, Handlers handlers);

    // Shows the state as it is now and comes to the front.
    void present();
    void refresh();
    void showNotice(const QString& text);

private:
    QWidget* makeHeader();
    QWidget* makeCommands();
    void setWidths();

    Preferences& m_preferences;
    Handlers m_handlers;
    QWidget* m_header = nullptr;
    Label* m_title = nullptr;
    Label* m_subtitle = nullptr;
    Notice* m_notice = nullptr;
    PrimaryButton* m_signIn = nullptr;
    QWidget* m_commandList = nullptr;
    std::vector<std::pair<RowButton*, MenuEntry>> m_commands;
};

} // namespace Kovrel
