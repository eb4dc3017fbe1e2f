#pragma once

#include "app/AppDelegate.h"
#include "app/CommandRunner.h"
#include "app/FeatureList.h"
#include "app/QuitSignals.h"
#include "app/SuddenExit.h"
#include "platform/desktop/InstanceBus.h"
#include "ports/ProgramCommands.h"
#include "ports/SettingsPages.h"
#include "ui/style/AppColors.h"

#include <QObject>

namespace Kovrel {

// The program in the tray: the features on their foundation, and the bus on which other processes reach them. Main
// thread; lives as long as the process.
class Application : private ProgramCommands, private SettingsPages {
public:
    Application(Launch launch, std::span<const FeatureEntry> features);
    ~Application() override;

    // Takes the program's place on the bus. Commands wait until `start`.
    InstanceBus::Claim claimInstance();
    void start();

    // The same as a command that comes over the bus.
    void run(const QStringList& arguments, Reply<CommandAnswer> reply);

private:
    // ProgramCommands
    bool isOffered(const MenuEntry& entry) const override { return m_commands.isOffered(entry); }

    bool isEnabled(const MenuEntry& entry) const override { return m_commands.isEnabled(entry); }

    void perform(const MenuEntry& entry, bool isFromMenu) override { m_commands.perform(entry, isFromMenu); }

    void bringForward() override { m_delegate.applicationShouldHandleReopen(); }

    void quit(const QString& reason) override { m_delegate.quit(reason); }

    // SettingsPages
    std::vector<SettingsPage> settingsPages() override;

    void addCommands();
    CommandAnswer open(const Command& command);
    void announceCaptures();
    bool finishWork();
    [[noreturn]] void endWithoutDisplay();
    InstanceBus::Handlers busHandlers();
    AppDelegate::Process process();

    Launch m_launch;
    Foundation m_foundation{Foundation::Kind::instance};
    Ports m_ports;
    InstanceBus m_bus; // before the features: their last replies still leave
    AppDelegate::Features m_features;
    CommandRunner m_commands;
    AppDelegate m_delegate;
    Subscription m_captures;
    std::optional<AppColors> m_colors;
    std::unique_ptr<QuitSignals> m_signals;
    std::unique_ptr<SuddenExit> m_suddenExit;
};

} // namespace Kovrel
