#pragma once

#include "app/foundation/Feature.h"
#include "app/foundation/Foundation.h"
#include "app/foundation/LoginSwitch.h"
#include "platform/Observers.h"
#include "ports/CaptureChrome.h"
#include "ports/HelpWindows.h"
#include "ports/Ports.h"
#include "ui/Aside.h"
#include "welcome/FirstRunWindow.h"
#include "welcome/HomeWindow.h"
#include "welcome/PermissionWindow.h"

#include <memory>

namespace Kovrel {

// The program's own windows: the first run, home, and what helps where nothing can be captured.
class WelcomeFeature : public Feature, private HelpWindows, private CaptureChrome {
public:
    WelcomeFeature(Foundation& foundation, Ports& ports);

    void start(const Launch& launch) override;

private:
    // HelpWindows
    void showHome() override;
    void showOnboarding(bool withSignIn) override;
    void showPermissionWindow() override;
    void presentUpdatedNotice(const QString& version) override;

    // CaptureChrome: the first run steps aside for the capture that is tried out in it.
    bool setHiddenForCapture(bool isHidden) override;

    bool alwaysMakesWay() const override { return true; }

    void whenForegroundIsFree(std::function<void()> work);
    void refresh();
    bool isSignedIn() const;

    HomeWindow& home();
    HomeWindow::Handlers homeHandlers();
    void perform(const MenuEntry& entry);

    void presentFirstRun(bool isSignedIn);
    FirstRunWindow::Services firstRunServices(bool isSignedIn);
    HotkeysPage::Services hotkeyServices();
    void firstRunClosed();

    PermissionWindow& permission();
    void obstacleCleared();

    Foundation& m_foundation;
    const Ports& m_ports;
    QString m_version; // from `start` on
    LoginSwitch m_login;
    // Each is null until it is shown for the first time.
    std::unique_ptr<HomeWindow> m_home;
    std::unique_ptr<FirstRunWindow> m_firstRun; // and once it is done
    std::unique_ptr<PermissionWindow> m_permission;
    Aside m_aside; // where the first run is while a capture runs
    std::vector<Subscription> m_subscriptions;
};

} // namespace Kovrel
