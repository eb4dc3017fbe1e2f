#pragma once

#include "app/foundation/Feature.h"
#include "platform/MainLoop.h"
#include "platform/Observers.h"
#include "ports/Ports.h"
#include "preferences/Preferences.h"

#include <memory>

namespace Kovrel {

// The life of the program: the order in which it starts, what a second start or a URL does, and when it may end. Main
// thread.
class AppDelegate {
public:
    // What it does to the process.
    struct Process {
        std::function<bool()> bringTitledWindowsForward; // answers whether there was one
        std::function<void()> closeTitledWindows;
        std::function<void()> stopTakingCommands; // new commands are for another instance
        std::function<void()> exit;
        std::function<bool()> mayRecordScreen;
    };
    enum class TerminationDecision { terminate, cancel };
    using Features = std::vector<std::unique_ptr<Feature>>;

    // All of them outlive it.
    AppDelegate(Features& features, const Ports& ports, Preferences& preferences, MainLoop& loop, Process process);
    ~AppDelegate();

    void applicationDidFinishLaunching(const Launch& launch);
    // The program was started again while it runs.
    void applicationShouldHandleReopen();
    // One of Kovrel's own, or a file's.
    void handleURL(const QString& url);
    // In the editor; false where there is none.
    bool openFiles(const QStringList& paths);

    // A quit without a reason closes windows and keeps the program in the tray; one with a reason ends it, once
    // nothing that the features must finish is under way.
    void quit(const QString& reason);
    // How long background work may still take; no value unless a quit was asked for.
    std::optional<std::chrono::milliseconds> timeToExit() const;

    void setRelaunching(bool isRelaunching) { m_isRelaunching = isRelaunching; }

private:
    TerminationDecision terminationDecision(const QString& reason);
    bool noteBuild(const Launch& launch);
    void noteKnownUser();
    void showFirstWindow(const Launch& launch, bool isUpdated);
    void accountChanged();
    bool isSignedIn() const;
    bool isOnboarded() const;
    void finishPending(std::function<void()> done);
    void end();

    Features& m_features;
    const Ports& m_ports;
    Preferences& m_preferences;
    MainLoop& m_loop;
    Process m_process;
    MainLoop::TimerID m_prewarmTimer = 0;
    Subscription m_accountChanges;
    bool m_isRelaunching = false;
    std::optional<std::chrono::microseconds> m_exitDeadline; // of the main loop's clock; set while terminating
};

} // namespace Kovrel
