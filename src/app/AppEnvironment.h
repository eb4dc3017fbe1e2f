#pragma once

#include "platform/Observers.h"

#include <QStringList>

#include <chrono>
#include <functional>

namespace Kovrel {

// What starting up and quitting ask of the rest of the program. Main thread; nothing here blocks.
class AppEnvironment {
public:
    virtual ~AppEnvironment() = default;

    // Start-up, in this order.
    virtual void ensureDefaultSaveFolder() = 0;
    virtual void restoreAccount() = 0;
    virtual void sweepTemporaryFiles() = 0;
    virtual void terminateOnSignal() = 0;
    virtual void registerHotkeys() = 0;
    virtual void unregisterHotkeys() = 0;
    virtual void startMaintainingShortcuts() = 0;
    virtual void prewarm() = 0;        // recognition, codes, effects, toasts, overlay
    virtual void prewarmDelayed() = 0; // history window, shadow tiles, missing pixel sizes

    virtual bool isSignedIn() const = 0;
    virtual bool mayRecordScreen() const = 0;
    virtual void whenAccountIsKnown(std::function<void()> work) = 0;
    virtual Subscription onAccountChange(std::function<void()> observer) = 0;

    virtual void showHome() = 0;
    virtual void showOnboarding(bool withSignIn) = 0;
    virtual void showPermissionWindow() = 0;
    virtual void presentUpdatedNotice(const QString& version) = 0;
    virtual void openFiles(const QStringList& paths) = 0;
    virtual void handleSignInAnswer(const QString& url) = 0;

    // Editors and other titled windows. Answers whether there was one.
    virtual bool bringTitledWindowsForward() = 0;
    virtual void closeTitledWindows() = 0;

    // From now on new commands are for another instance.
    virtual void stopTakingCommands() = 0;
    // Runs the work once no save of the editor or of a capture is in flight, at the latest after the deadline.
    virtual void afterPendingSaves(std::chrono::milliseconds deadline, std::function<void()> work) = 0;
    virtual void giveShortcutsBack() = 0;
    virtual void exit() = 0;
};

} // namespace Kovrel
