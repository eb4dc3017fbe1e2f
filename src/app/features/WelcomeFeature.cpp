#include "app/features/WelcomeFeature.h"

#include "commandline/CommandTable.h"
#include "platform/session/DesktopSession.h"
#include "ports/AccountStatus.h"
#include "ports/Captures.h"
#include "ports/CardPile.h"
#include "ports/HotkeyStatus.h"
#include "ports/ProgramCommands.h"
#include "ports/UpdateStatus.h"
#include "tray/TrayMenu.h"

namespace Kovrel {

WelcomeFeature::WelcomeFeature(Foundation& foundation, Ports& ports)
    : m_foundation(foundation), m_ports(ports), m_login(foundation)
{
    ports.help.offer(*this);
    ports.chrome.push_back(this);
}

void WelcomeFeature::start(const Launch& launch)
{
    m_version = launch.version;
    if (m_ports.account)
        m_subscriptions.push_back(m_ports.account->onChange([this] {
            if (m_firstRun)
                m_firstRun->setSignedIn(isSignedIn());
            refresh();
        }));
    if (m_ports.captures)
        m_subscriptions.push_back(m_ports.captures->onCaptureFinished([this](const CaptureResult&) {
            if (m_firstRun)
                m_firstRun->noteCapture();
            refresh();
        }));
    if (m_ports.hotkeys)
        m_subscriptions.push_back(m_ports.hotkeys->onRefusals([this] { refresh(); }));
    if (m_ports.updates)
        m_subscriptions.push_back(m_ports.updates->onChange([this] { refresh(); }));
    m_subscriptions.push_back(m_login.onChange([this] { refresh(); }));
}

void WelcomeFeature::refresh()
{
    if (m_home)
        m_home->refresh();
    if (m_firstRun)
        m_firstRun->refresh();
}

bool WelcomeFeature::isSignedIn() const
{
    return !m_ports.account || m_ports.account->isSignedIn();
}

void WelcomeFeature::whenForegroundIsFree(std::function<void()> work)
{
    if (m_ports.captures)
        m_ports.captures->whenForegroundIsFree(std::move(work));
    else
        work();
}

// --- Home

// Whoever is in the middle of the first run goes on there.
void WelcomeFeature::showHome()
{
    whenForegroundIsFree([this] {
        if (m_firstRun && m_firstRun->isVisible())
            m_firstRun->present();
        else
            home().present();
    });
}

void WelcomeFeature::presentUpdatedNotice(const QString& version)
{
    showHome();
    home().showNotice(HomeWindow::tr("Kovrel was updated to version %1.").arg(version));
}

HomeWindow& WelcomeFeature::home()
{
    if (!m_home)
        m_home = std::make_unique<HomeWindow>(m_foundation.preferences, m_version, homeHandlers());
    return *m_home;
}

HomeWindow::Handlers WelcomeFeature::homeHandlers()
{
    return {
        .isSignedIn = [this] { return isSignedIn(); },
        .account = [this] { return m_ports.account ? m_ports.account->kind() : AccountKind::none; },
        .signIn = [this] { m_ports.account.tell(&AccountStatus::signInOnThisComputer); },
        .signOut = [this] { m_ports.account.tell(&AccountStatus::signOut); },
        .obstacle = [] { return DesktopSession::obstacle(); },
        .newerVersion = [this] { return m_ports.updates ? m_ports.updates->newerVersion() : std::nullopt; },
        .isEnabled = [this](const MenuEntry& entry) { return m_ports.commands && m_ports.commands->isEnabled(entry); },
        .perform = [this](const MenuEntry& entry) { perform(entry); },
    };
}

// A capture is not of the window in which it was asked for.
void WelcomeFeature::perform(const MenuEntry& entry)
{
    const bool isCapture = entry.arguments.front() == "capture";
    if (isCapture)
        m_home->hide();
    m_ports.commands.tell(&ProgramCommands::perform, entry, isCapture);
}

// --- The first run

void WelcomeFeature::showOnboarding(bool withSignIn)
{
    if (DesktopSession::obstacle().isEmpty())
        whenForegroundIsFree([this, withSignIn] { presentFirstRun(!withSignIn); });
    else
        showPermissionWindow();
}

void WelcomeFeature::presentFirstRun(bool isSignedIn)
{
    if (m_home)
        m_home->hide();
    if (!m_firstRun)
        m_firstRun = std::make_unique<FirstRunWindow>(firstRunServices(isSignedIn));
    m_login.read();
    m_ports.cards.tell(&CardPile::holdCountdowns, CountdownHold::onboarding, true);
    m_firstRun->present();
}

FirstRunWindow::Services WelcomeFeature::firstRunServices(bool isSignedIn)
{
    return {
        .hotkeys = hotkeyServices(),
        .login = {.isOn = [this] { return m_login.isOn(); }, .set = [this](bool isOn) { m_login.set(isOn); }},
        .hasTray = TrayMenu::desktopHasTray(),
        .isSignedIn = isSignedIn,
        .signIn = [this] { m_ports.account.tell(&AccountStatus::signInOnThisComputer); },
        .capture =
            [this] {
                m_ports.commands.tell(&ProgramCommands::perform, CommandTable::entryOf(HotkeyAction::area), true);
            },
        .showsCards =
            [this] {
                const auto actions = m_foundation.preferences.get(Settings::afterCaptureActions);
                return m_ports.cards && actions.testFlag(AfterCaptureAction::showCard);
            },
        .closed = [this] { firstRunClosed(); },
    };
}

HotkeysPage::Services WelcomeFeature::hotkeyServices()
{
    return {
        .preferences = m_foundation.preferences,
        .isOffered = [this](const MenuEntry& entry) { return m_ports.commands && m_ports.commands->isOffered(entry); },
        .refusal = [this](const QString& setting) -> std::optional<QString> {
            return m_ports.hotkeys ? m_ports.hotkeys->refusal(setting) : std::nullopt;
        },
        .borrowedKeys = [this] { return m_ports.hotkeys ? m_ports.hotkeys->borrowedKeys() : QStringList(); },
        .changeKeys =
            [this] {
                const MenuEntry shortcuts{.label = "", .action = "", .arguments = {"settings", "shortcuts"}};
                m_ports.commands.tell(&ProgramCommands::perform, shortcuts, false);
            },
    };
}

// Closed early it comes again, and goes on where it was, unless the program can be worked with already.
void WelcomeFeature::firstRunClosed()
{
    m_ports.cards.tell(&CardPile::holdCountdowns, CountdownHold::onboarding, false);
    if (!m_firstRun->isSettled())
        return;
    m_firstRun.release()->deleteLater();
    m_foundation.preferences.set(Settings::hasCompletedOnboarding, true);
}

bool WelcomeFeature::setHiddenForCapture(bool isHidden)
{
    const bool changesScreen = m_firstRun && m_aside.set(*m_firstRun, isHidden);
    if (changesScreen && !isHidden)
        m_firstRun->present();
    return changesScreen;
}

// --- Where nothing can be captured

void WelcomeFeature::showPermissionWindow()
{
    whenForegroundIsFree([this] { permission().present(); });
}

PermissionWindow& WelcomeFeature::permission()
{
    if (!m_permission)
        m_permission = std::make_unique<PermissionWindow>(
            PermissionWindow::Services{.reason = [] { return DesktopSession::obstacleReason(); },
                                       .steps = DesktopSession::obstacleRemedy(),
                                       .cleared = [this] { obstacleCleared(); }});
    return *m_permission;
}

void WelcomeFeature::obstacleCleared()
{
    if (m_foundation.preferences.get(Settings::hasCompletedOnboarding))
        showHome();
    else
        showOnboarding(!isSignedIn());
}

std::unique_ptr<Feature> makeWelcomeFeature(Foundation& foundation, Ports& ports)
{
    return std::make_unique<WelcomeFeature>(foundation, ports);
}

} // namespace Kovrel
