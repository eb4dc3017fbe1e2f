#pragma once

#include "hotkeys/TakenShortcuts.h"
#include "platform/Scope.h"
#include "preferences/Preferences.h"

#include <set>
#include <span>

namespace Kovrel {

// Switches the desktop's own screenshot shortcuts off while Kovrel has their chords, and on again. What is taken from
// the desktop is noted in the settings first, so that it comes back after a crash too; a shortcut that the user changed
// in the meantime stays as the user wants it. Main thread; the desktop is asked on a worker.
class SystemShortcutManager {
public:
    // A chord that desktops use for screenshots, with the number that the settings remember it by.
    struct Chord {
        KeyCombo combo;
        int symbolicHotKey;
    };

    enum class Ownership {
        unavailable, // this desktop's shortcuts can't be switched
        none,        // no chord is to be ours
        owned,       // some are, from now on or shortly
    };

    // Without switches nothing is ever changed. `mayCapture` is asked at each synchronisation; before the first
    // run is finished it counts for nothing.
    SystemShortcutManager(MainLoop& loop, Workers& workers, Preferences& preferences,
                          std::shared_ptr<ShortcutSwitches> switches, std::function<bool()> mayCapture);

    static std::span<const Chord> manageableChords();

    // From now on changes of the settings are followed.
    void startMaintaining();
    // Takes the chords of our hotkeys, if the program may capture.
    Ownership syncOwnership();
    // Switches off what is in the target, and on what we once switched off and is not in it. What the desktop has not
    // confirmed to have back stays noted, and is tried again at the next start. Jobs that are under way when the
    // program ends are still done.
    void reconcile(const std::set<int>& target);
    // Calls back once the last reconciliation is done, or has failed; at once where none is under way.
    void whenSettled(std::function<void()> done);

    void forceEnableAllNative() { reconcile({}); }

    bool canSwitch() const { return m_switches != nullptr; }

    // The chords that the desktop has lent us, as people write them.
    QStringList borrowedKeys() const;
    // For good: clears our hotkeys that need them.
    void giveBack();

    std::set<int> disabledByUs() const;

    // Called once the desktop has let go of chords.
    Subscription onSwitchedOff(std::function<void()> callback) { return m_switchedOff.add(std::move(callback)); }

private:
    std::set<int> wantedChords() const;
    std::optional<int> symbolicHotKey(const QString& accelerator) const;
    std::vector<TakenShortcut> takenShortcuts() const;
    void store(const std::vector<TakenShortcut>& shortcuts, const Reply<UserDefaults::Stored>& stored = {});
    void giveBackAtOnce();
    QCoro::Task<> work();
    QCoro::Task<> switchOnAllBut(std::set<int> target);
    QCoro::Task<> switchOff(std::set<int> target);
    bool take(const ShortcutSwitches::Shortcut& shortcut, const std::set<int>& target,
              std::vector<TakenShortcut>& shortcuts) const;

    Workers& m_workers;
    Preferences& m_preferences;
    std::shared_ptr<ShortcutSwitches> m_switches;
    std::function<bool()> m_mayCapture;
    Observers<> m_switchedOff;
    std::optional<std::set<int>> m_target; // of the last reconciliation
    bool m_isWorking = false;
    std::vector<std::function<void()>> m_waiting;
    Subscription m_settingChanges;
    Scope m_scope;
};

} // namespace Kovrel
