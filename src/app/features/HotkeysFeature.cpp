#include "app/features/HotkeysFeature.h"

#include "hotkeys/HotkeySettings.h"
#include "platform/ScreenLock.h"
#include "platform/session/DesktopSession.h"
#include "ports/AccountStatus.h"
#include "ports/ProgramCommands.h"
#include "ports/Toasts.h"
#include "settings/pages/ShortcutsPage.h"

#include <QCoreApplication>

namespace Kovrel {

namespace {

// A desktop gives up the keys of a shortcut some time after its setting.
constexpr auto shortcutDelay = std::chrono::milliseconds(500);
// Those that are had by then were the desktop's.
constexpr auto refusalDelay = 5 * shortcutDelay;

} // namespace

HotkeysFeature::HotkeysFeature(Foundation& foundation, Ports& ports)
    : m_foundation(foundation),
      m_ports(ports),
      m_shortcuts(foundation.loop, foundation.workers, foundation.preferences, foundation.desktop->shortcuts(),
                  [this] { return isSignedIn() && DesktopSession::obstacle().isEmpty(); }),
      m_hotkeys(foundation.desktop->keys(), foundation.preferences, foundation.trace, handlers())
{
    ports.hotkeys.offer(*this);
}

GlobalHotkeyManager::Handlers HotkeysFeature::handlers()
{
    return {
        .isSignedIn = [this] { return isSignedIn(); },
        .isOffered = [this](const MenuEntry& entry) { return m_ports.commands && m_ports.commands->isOffered(entry); },
        .syncOwnership = [this] { m_shortcuts.syncOwnership(); },
        .perform = [this](const MenuEntry& entry) { perform(entry); },
        .refused = [this] { m_foundation.loop.after(refusalDelay, m_lifeline.guard([this] { tellRefusals(); })); },
    };
}

// A lock keeps the keyboard to itself, but keys of a menu that was open are told all the same.
void HotkeysFeature::perform(const MenuEntry& entry)
{
    if (!m_foundation.desktop->lock().isLocked())
        m_ports.commands.tell(&ProgramCommands::perform, entry, false);
}

std::optional<QString> HotkeysFeature::refusal(const QString& setting) const
{
    for (const MenuEntry& entry : CommandTable::menuInHotkeyOrder())
        if (HotkeySettings::keyOf(*entry.hotkey).name == setting)
            return reasonOf(*entry.hotkey);
    return std::nullopt;
}

std::optional<QString> HotkeysFeature::reasonOf(HotkeyAction action) const
{
    if (!m_hotkeys.isRefused(action))
        return std::nullopt;
    const auto keys =
        HotkeySettings::combo(m_foundation.preferences, CommandTable::entryOf(action)).value_or(KeyCombo());
    if (const auto rival = m_hotkeys.rival(action))
        return tr("%1 belongs to “%2” already")
            .arg(keys.title(), QCoreApplication::translate("CommandTable", CommandTable::entryOf(*rival).label));
    return tr("%1 belongs to another program; it is tried again when that lets it go").arg(keys.title());
}

// Each once: who presses the key would wait for a capture that never comes.
void HotkeysFeature::tellRefusals()
{
    QStringList combos;
    for (const MenuEntry& entry : CommandTable::menuInHotkeyOrder())
        if (m_hotkeys.isRefused(*entry.hotkey) && m_toldRefusals.insert(*entry.hotkey).second)
            combos << HotkeySettings::combo(m_foundation.preferences, entry).value_or(KeyCombo()).title();
    if (combos.isEmpty())
        return;
    const ToastContent toast{.message = tr("Another program has %1").arg(combos.join(", ")),
                             .subtitle = tr("It is tried again when that lets it go."),
                             .icon = "exclamationmark.triangle"};
    m_ports.toasts.tell(&Toasts::present, toast, std::nullopt, false);
}

bool HotkeysFeature::isSignedIn() const
{
    return !m_ports.account || m_ports.account->isSignedIn();
}

void HotkeysFeature::start(const Launch&)
{
    m_freedShortcuts =
        m_shortcuts.onSwitchedOff([this] { m_foundation.loop.after(shortcutDelay, [this] { m_hotkeys.refresh(); }); });
    if (!m_ports.account) {
        takeKeys();
        return;
    }
    m_ports.account->whenKnown([this] { takeKeys(); });
    m_accountChanges = m_ports.account->onChange([this] {
        m_hotkeys.unregisterAll();
        m_hotkeys.registerAll();
    });
}

void HotkeysFeature::takeKeys()
{
    m_hotkeys.registerAll();
    m_shortcuts.startMaintaining();
}

// The desktop can have its keys once they are free. Another instance that starts now can have them, too.
void HotkeysFeature::finishPending(std::chrono::milliseconds deadline, std::function<void()> done)
{
    prepareToEnd();
    const auto once = std::make_shared<std::function<void()>>(std::move(done));
    const auto finish = [once] {
        if (const auto callback = std::exchange(*once, nullptr))
            callback();
    };
    m_shortcuts.whenSettled(finish);
    m_foundation.loop.after(deadline, finish);
}

void HotkeysFeature::prepareToEnd()
{
    m_hotkeys.unregisterAll();
    m_shortcuts.reconcile({});
}

std::vector<SettingsPage> HotkeysFeature::settingsPages()
{
    return {ShortcutsPage::make({.keys = m_foundation.desktop->keys(),
                                 .preferences = m_foundation.preferences,
                                 .refusal = [this](HotkeyAction action) { return reasonOf(action); },
                                 .onRefusals = [this](auto changed) { return m_hotkeys.onPass(std::move(changed)); },
                                 .canBorrow = m_shortcuts.canSwitch(),
                                 .borrowed = [this] { return m_shortcuts.borrowedKeys(); },
                                 .giveBack = [this] { m_shortcuts.giveBack(); }})};
}

std::unique_ptr<Feature> makeHotkeysFeature(Foundation& foundation, Ports& ports)
{
    return std::make_unique<HotkeysFeature>(foundation, ports);
}

} // namespace Kovrel
