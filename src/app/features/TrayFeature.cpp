#include "app/features/TrayFeature.h"

#include "commandline/CommandTable.h"
#include "ports/AccountStatus.h"
#include "ports/Captures.h"
#include "ports/CardPile.h"
#include "ports/HelpWindows.h"
#include "ports/ProgramCommands.h"
#include "ui/TitledWindows.h"

#include <QLoggingCategory>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.app")

} // namespace

TrayFeature::TrayFeature(Foundation& foundation, Ports& ports) : m_foundation(foundation), m_ports(ports) {}

void TrayFeature::start(const Launch& launch)
{
    m_menu = std::make_unique<TrayMenu>(m_foundation.preferences, handlers());
    m_menu->show();
    if (!TrayMenu::desktopHasTray() && !launch.isLoginItem)
        helpWithoutTray();
}

// The window is the way in then. Whoever starts for the first time has another one.
void TrayFeature::helpWithoutTray()
{
    qCInfo(log, "This desktop has no tray; Kovrel is reached by its window and by its command line");
    const auto showHome = [this] {
        const bool isKnown = m_ports.account && m_ports.account->isSignedIn();
        if (isKnown || m_foundation.preferences.get(Settings::hasCompletedOnboarding))
            m_ports.help.tell(&HelpWindows::showHome);
    };
    if (m_ports.account)
        m_ports.account->whenKnown(showHome);
    else
        showHome();
}

TrayMenu::Handlers TrayFeature::handlers()
{
    return {
        .isEnabled = [this](const MenuEntry& entry) { return m_ports.commands && m_ports.commands->isEnabled(entry); },
        .perform = [this](const MenuEntry& entry) { m_ports.commands.tell(&ProgramCommands::perform, entry, true); },
        .isCountingDown = [this] { return m_ports.captures && m_ports.captures->isCountingDown(); },
        .cancelCountdown = [this] { m_ports.captures.tell(&Captures::cancelCountdown); },
        .hasCards = [this] { return m_ports.cards && m_ports.cards->hasCards(); },
        .areCardsHidden = [this] { return m_ports.cards && m_ports.cards->isTemporarilyHidden(); },
        .hideCards = [this](bool hide) { m_ports.cards.tell(&CardPile::setTemporarilyHidden, hide); },
        .openWindows = TitledWindows::list,
        .openHome = [this] { m_ports.commands.tell(&ProgramCommands::bringForward); },
        .quit = [this] { m_ports.commands.tell(&ProgramCommands::quit, "menu"); },
    };
}

std::unique_ptr<Feature> makeTrayFeature(Foundation& foundation, Ports& ports)
{
    return std::make_unique<TrayFeature>(foundation, ports);
}

} // namespace Kovrel
