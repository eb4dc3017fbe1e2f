#pragma once

#include "commandline/CommandTable.h"
#include "preferences/Preferences.h"

#include <QLabel>
#include <QPushButton>
#include <QWidget>

namespace Kovrel {

// The program's own window: first steps, what stands in the way of capturing, and every command with its keys, for
// desktops without a tray too. Main thread.
class HomeWindow : public QWidget {
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
    QWidget* makeNotice();
    QWidget* makeCommands();

    Preferences& m_preferences;
    Handlers m_handlers;
    QLabel* m_title = nullptr;
    QLabel* m_subtitle = nullptr;
    QLabel* m_notice = nullptr;
    QPushButton* m_signIn = nullptr;
    QWidget* m_commandList = nullptr;
    std::vector<std::pair<QPushButton*, MenuEntry>> m_commands;
    std::vector<QLabel*> m_keys;
};

} // namespace Kovrel
