#pragma once

#include "app/foundation/Feature.h"
#include "app/foundation/Foundation.h"
#include "platform/Observers.h"
#include "ports/HelpWindows.h"
#include "ports/Ports.h"
#include "welcome/HomeWindow.h"

#include <memory>

namespace Kovrel {

// The program's own window: first steps and help.
class WelcomeFeature : public Feature, private HelpWindows {
public:
    WelcomeFeature(Foundation& foundation, Ports& ports);

    void start(const Launch& launch) override;

private:
    // HelpWindows
    void showHome() override;
    void showOnboarding(bool withSignIn) override;
    void showPermissionWindow() override;
    void presentUpdatedNotice(const QString& version) override;

    HomeWindow& window();
    HomeWindow::Handlers handlers();
    void perform(const MenuEntry& entry);
    void refresh();

    Foundation& m_foundation;
    const Ports& m_ports;
    std::unique_ptr<HomeWindow> m_window; // null until it is shown for the first time
    Subscription m_accountChanges;
    Subscription m_finishedCaptures;
};

} // namespace Kovrel
