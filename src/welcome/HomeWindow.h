#pragma once

#include "commandline/CommandTable.h"
#include "model/AccountKind.h"
#include "preferences/Preferences.h"
#include "ui/AppWindow.h"

namespace Kovrel {

class Label;
class Notice;
class PlainButton;
class PrimaryButton;
class RowButton;
class ScrollColumn;
class WindowHeader;

// The program's own window: who is signed in, what stands in the way of capturing, and every command with its keys, for
// desktops without a tray too. Main thread.
class HomeWindow : public AppWindow {
    Q_OBJECT

public:
    struct Handlers {
        std::function<bool()> isSignedIn; // or nobody has to be
        std::function<AccountKind()> account;
        std::function<void()> signIn;
        std::function<void()> signOut;
        // Why nothing can be captured on this desktop; empty where it can.
        std::function<QString()> obstacle;
        // That the package manager has; no value where none is known.
        std::function<std::optional<QString>()> newerVersion;
        std::function<bool(const MenuEntry&)> isEnabled;
        std::function<void(const MenuEntry&)> perform;
    };

    HomeWindow(Preferences& preferences, QString version, Handlers handlers);

    // Shows the state as it is now and comes to the front.
    void present();
    void refresh();
    void showNotice(const QString& text);

private:
    QWidget* makeCommands();
    QWidget* makeFooter();
    void refreshUpdate();
    void refreshFooter();
    QString accountText() const;
    void askToSignOut();
    void setWidths();
    void fitOntoScreen();

    Preferences& m_preferences;
    QString m_version;
    Handlers m_handlers;
    QWidget* m_content;
    WindowHeader* m_header;
    Notice* m_notice;
    Notice* m_update;
    PrimaryButton* m_signIn;
    ScrollColumn* m_commandList = nullptr;
    std::vector<std::pair<RowButton*, MenuEntry>> m_commands;
    Label* m_facts = nullptr;
    PlainButton* m_signOut = nullptr;
};

} // namespace Kovrel
