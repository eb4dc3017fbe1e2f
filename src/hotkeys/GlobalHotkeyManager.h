#pragma once

#include "commandline/CommandTable.h"
#include "platform/KeyGrabs.h"
#include "preferences/Preferences.h"

#include <map>

namespace Kovrel {

class CaptureTrace;

// Keeps one system-wide hotkey registered for each command that has a key combination in the settings. Follows the
// settings and the keyboard's layout from the first `registerAll` to `unregisterAll`. Main thread.
class GlobalHotkeyManager {
public:
    using ID = quint32; // of one registration

    struct Handlers {
        std::function<bool()> isSignedIn;                // without an account every key stays with the other programs
        std::function<bool(const MenuEntry&)> isOffered; // else its key stays with the other programs, too
        std::function<void()> syncOwnership;             // of the desktop's own screenshot shortcuts
        std::function<void(const MenuEntry&)> perform;
        std::function<void()> refused = {}; // some combination can't be had: after each pass that ends so
    };

    GlobalHotkeyManager(KeyGrabs& keys, Preferences& preferences, CaptureTrace& trace, Handlers handlers);
    ~GlobalHotkeyManager();
    GlobalHotkeyManager(const GlobalHotkeyManager&) = delete;
    GlobalHotkeyManager& operator=(const GlobalHotkeyManager&) = delete;

    // Registers what has changed and what was refused before; what is registered already stays. Of two commands with
    // the same combination the first one has it. A refusal is logged.
    void registerAll();
    void unregisterAll();
    // The same as `registerAll`, unless nothing is to be registered: other programs may have let go of keys.
    void refresh();
    void registerHotkey(quint32 keyCode, quint32 modifiers, HotkeyAction action);

    // A hotkey was pressed. Starts the clock of the capture trace.
    void handle(ID id);

    // Whether it has a combination that can't be had: another program's, or that of another of our commands.
    bool isRefused(HotkeyAction action) const { return m_refused.contains(action); }

    // The other command of ours that has its combination; none where another program has it.
    std::optional<HotkeyAction> rival(HotkeyAction action) const;

    // Called after each pass of registrations.
    Subscription onPass(std::function<void()> callback) { return m_passes.add(std::move(callback)); }

    // Changes with each pass of registrations.
    int revision() const { return m_revision; }

private:
    struct Hotkey {
        KeyCombo combo;
        HotkeyAction action;
        KeyGrabs::GrabID grab;
    };

    std::map<HotkeyAction, KeyCombo> wantedCombos();
    void refuse(HotkeyAction action, KeyGrabs::Status status, std::optional<HotkeyAction> rival = {});

    KeyGrabs& m_keys;
    Preferences& m_preferences;
    CaptureTrace& m_trace;
    Handlers m_handlers;
    std::map<ID, Hotkey> m_hotkeys;
    std::map<HotkeyAction, std::optional<HotkeyAction>> m_refused; // with the rival
    Observers<> m_passes;
    ID m_lastID = 0;
    int m_revision = 0;
    bool m_isActive = false;
    Subscription m_layoutChanges;
    Subscription m_settingChanges;
};

} // namespace Kovrel
