#include "app/features/WelcomeFeature.h"

#include "commandline/CommandTable.h"
#include "platform/session/DesktopSession.h"
#include "ports/AccountStatus.h"
#include "ports/Captures.h"
#include "ports/ProgramCommands.h"

namespace Kovrel {

WelcomeFeature::WelcomeFeature(Foundation& foundation, Ports& ports) : m_foundation(foundation), m_ports(ports)
{
    ports.help.offer(*this);
}

void WelcomeFeature::start(const Launch&)
{
    if (m_ports.account)
        m_accountChanges = m_ports.account->onChange([this] { refresh(); });
    if (m_ports.captures)
        m_finishedCaptures = m_ports.captures->onCaptureFinished([this](const CaptureResult&) { refresh(); });
}

void WelcomeFeature::refresh()
{
    if (m_window)
        m_window->refresh();
}

HomeWindow& WelcomeFeature::window()
{
    if (!m_window)
        m_window = std::make_unique<HomeWindow>(m_foundation.preferences, handlers());
    return *m_window;
}

HomeWindow::Handlers WelcomeFeature::handlers()
{
    return {
        .isSignedIn = [this] { return !m_ports.account || m_ports.account->isSignedIn(); },
        .signIn = [this] { m_ports.account.tell(&AccountStatus::signInOnThisComputer); },
        .obstacle = [] { return DesktopSession::obstacle(); },
        .isEnabled = [this](const MenuEntry& entry) { return m_ports.commands && m_ports.commands->isEnabled(entry); },
        .perform = [this](const MenuEntry& entry) { perform(entry); },
    };
}

// A capture is not of the window in which it was asked for.
void WelcomeFeature::perform(const MenuEntry& entry)
{
    const bool isCapture = entry.arguments.front() == "capture";
    if (isCapture)
        m_window->hide();
    m_ports.commands.tell(&ProgramCommands::perform, entry, isCapture);
}

void WelcomeFeature::showHome()
{
    const auto present = [this] { window().present(); };
    if (m_ports.captures)
        m_ports.captures->whenForegroundIsFree(present);
    else
        present();
}

void WelcomeFeature::showOnboarding(bool)
{
    showHome();
}

void WelcomeFeature::showPermissionWindow()
{
    showHome();
}

void WelcomeFeature::presentUpdatedNotice(const QString& version)
{
    showHome();
    window().showNotice(HomeWindow::tr("Kovrel was updated to version %1.").arg(version));
}

std::unique_ptr<Feature> makeWelcomeFeature(Foundation& foundation, Ports& ports)
{
    return std::make_unique<WelcomeFeature>(foundation, ports);
}

} // namespace Kovrel
