#include "hotkeys/GlobalHotkeyManager.h"

#include "hotkeys/HotkeySettings.h"

#include "ports/CaptureTrace.h"

#include <QLoggingCategory>

#include <algorithm>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.hotkeys")

constexpr KeyGrabs::Status takenByOurselves = -1;

} // namespace

GlobalHotkeyManager::GlobalHotkeyManager(KeyGrabs& keys, Preferences& preferences, CaptureTrace& trace,
                                         Handlers handlers)
    : m_keys(keys), m_preferences(preferences), m_trace(trace), m_handlers(std::move(handlers))
{
    m_layoutChanges = m_keys.onLayoutChange([this] { refresh(); });
    m_settingChanges = m_preferences.defaults().onChange([this](const QString& key) {
        if (HotkeySettings::isOne(key))
            refresh();
    });
}

GlobalHotkeyManager::~GlobalHotkeyManager()
{
    unregisterAll();
}

void GlobalHotkeyManager::registerAll()
{
    m_isActive = true;
    ++m_revision;
    m_refused.clear();
    m_handlers.syncOwnership();
    auto wanted = m_handlers.isSignedIn() ? wantedCombos() : std::map<HotkeyAction, KeyCombo>();
    // What goes, goes first: two commands may have changed places.
    std::erase_if(m_hotkeys, [&](const auto& registered) {
        const Hotkey& hotkey = registered.second;
        const auto same = wanted.find(hotkey.action);
        const bool stays = same != wanted.end() && same->second == hotkey.combo;
        if (stays)
            wanted.erase(same);
        else
            m_keys.release(hotkey.grab);
        return !stays;
    });
    for (const auto& [action, combo] : wanted)
        registerHotkey(combo.keyCode, combo.modifiers, action);
    if (!m_refused.empty() && m_handlers.refused)
        m_handlers.refused();
    m_passes.notify();
}

// Of the settings; the combination of an earlier command is none for a later one.
std::map<HotkeyAction, KeyCombo> GlobalHotkeyManager::wantedCombos()
{
    std::map<HotkeyAction, KeyCombo> wanted;
    for (const MenuEntry& command : CommandTable::menuInHotkeyOrder()) {
        const auto combo = HotkeySettings::combo(m_preferences, command);
        if (!combo || !m_handlers.isOffered(command))
            continue;
        const auto earlier = std::ranges::find(wanted, *combo, [](const auto& other) { return other.second; });
        if (earlier != wanted.end())
            refuse(*command.hotkey, takenByOurselves, earlier->first);
        else
            wanted.emplace(*command.hotkey, *combo);
    }
    return wanted;
}

void GlobalHotkeyManager::registerHotkey(quint32 keyCode, quint32 modifiers, HotkeyAction action)
{
    const ID id = ++m_lastID;
    const KeyCombo combo{keyCode, modifiers};
    const auto grab = m_keys.grab(combo, {.onPress = [this, id](KeyGrabs::Press press) {
                                      if (!press.isRepeat)
                                          handle(id);
                                  }});
    if (grab)
        m_hotkeys.emplace(id, Hotkey{combo, action, *grab});
    else
        refuse(action, grab.error());
}

std::optional<HotkeyAction> GlobalHotkeyManager::rival(HotkeyAction action) const
{
    const auto refused = m_refused.find(action);
    return refused == m_refused.end() ? std::nullopt : refused->second;
}

void GlobalHotkeyManager::refuse(HotkeyAction action, KeyGrabs::Status status, std::optional<HotkeyAction> rival)
{
    m_refused.emplace(action, rival);
    qCWarning(log, "Kovrel: failed to register hotkey (status %d)", status);
}

void GlobalHotkeyManager::refresh()
{
    if (m_isActive)
        registerAll();
}

void GlobalHotkeyManager::unregisterAll()
{
    m_isActive = false;
    for (const auto& [id, hotkey] : std::exchange(m_hotkeys, {}))
        m_keys.release(hotkey.grab);
}

void GlobalHotkeyManager::handle(ID id)
{
    const auto hotkey = m_hotkeys.find(id);
    if (hotkey == m_hotkeys.end())
        return;
    m_trace.begin();
    m_handlers.perform(CommandTable::entryOf(hotkey->second.action));
}

} // namespace Kovrel
