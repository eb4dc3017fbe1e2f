#pragma once

#include "app/AppEnvironment.h"
#include "platform/MainLoop.h"
#include "preferences/Preferences.h"

namespace Kovrel {

// The life of the program: the order in which it starts, what a second start or a URL does, and when it may end. Main
// thread.
class AppDelegate {
public:
    struct Launch {
        QStringList files;
        bool isLoginItem = false; // started with the desktop: no window
        QString build;
        QString version;
    };
    enum class TerminationDecision { terminate, cancel };

    AppDelegate(AppEnvironment& environment, Preferences& preferences, MainLoop& loop);
    ~AppDelegate();

    void applicationDidFinishLaunching(const Launch& launch);
    // The program was started again while it runs.
    void applicationShouldHandleReopen();
    void handleURL(const QString& url);

    // A quit without a reason closes windows and keeps the program in the tray; one with a reason ends it, once the
    // saves in flight are on disk.
    void quit(const QString& reason);

    void setRelaunching(bool isRelaunching) { m_isRelaunching = isRelaunching; }

private:
    TerminationDecision terminationDecision(const QString& reason);
    bool noteBuild(const Launch& launch);
    void showFirstWindow(const Launch& launch, bool isUpdated);
    void accountChanged();

    AppEnvironment& m_environment;
    Preferences& m_preferences;
    MainLoop& m_loop;
    MainLoop::TimerID m_prewarmTimer = 0;
    bool m_isRelaunching = false;
    bool m_isTerminating = false;
    Subscription m_accountChanges;
};

} // namespace Kovrel
