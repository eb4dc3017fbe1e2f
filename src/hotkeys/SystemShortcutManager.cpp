#include "hotkeys/SystemShortcutManager.h"

#include "hotkeys/HotkeySettings.h"
#include "model/VirtualKeys.h"

#include <QLoggingCategory>

#include <algorithm>
#include <array>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.hotkeys")

constexpr quint32 superShift = KeyCombo::command | KeyCombo::shift;

constexpr std::array chords{
    SystemShortcutManager::Chord{{VirtualKeys::digit3, superShift}, 28},
    SystemShortcutManager::Chord{{VirtualKeys::digit4, superShift}, 30},
    SystemShortcutManager::Chord{{VirtualKeys::digit5, superShift}, 184},
};

// What a shortcut is to become, if it is still what it was.
struct Change {
    ShortcutSwitches::Shortcut before;
    QStringList after;
};

// Answers with the shortcuts about which nothing is left to be done: changed, or changed by somebody else meanwhile.
QStringList apply(ShortcutSwitches& switches, const std::vector<Change>& changes)
{
    const auto present = switches.shortcuts();
    QStringList settled;
    for (const auto& [before, after] : changes) {
        const bool isAsBefore = std::ranges::find(present, before) != present.end();
        if (present.empty() || (isAsBefore && !switches.set({before.id, after})))
            qCWarning(log, "The desktop's shortcut %s can't be changed", qUtf8Printable(before.id));
        else
            settled << before.id;
    }
    return settled;
}

} // namespace

SystemShortcutManager::SystemShortcutManager(MainLoop& loop, Workers& workers, Preferences& preferences,
                                             std::shared_ptr<ShortcutSwitches> switches,
                                             std::function<bool()> mayCapture)
    : m_workers(workers),
      m_preferences(preferences),
      m_switches(std::move(switches)),
      m_mayCapture(std::move(mayCapture)),
      m_scope(loop, workers)
{
}

std::span<const SystemShortcutManager::Chord> SystemShortcutManager::manageableChords()
{
    return chords;
}

void SystemShortcutManager::startMaintaining()
{
    m_settingChanges = m_preferences.defaults().onChange([this](const QString& key) {
        if (key == Settings::hasCompletedOnboarding.name || HotkeySettings::isOne(key))
            syncOwnership();
    });
    syncOwnership();
}

SystemShortcutManager::Ownership SystemShortcutManager::syncOwnership()
{
    if (!m_switches)
        return Ownership::unavailable;
    const std::set<int> target = wantedChords();
    if (m_target != target)
        reconcile(target);
    return target.empty() ? Ownership::none : Ownership::owned;
}

std::set<int> SystemShortcutManager::wantedChords() const
{
    std::set<int> wanted;
    if (!m_preferences.get(Settings::hasCompletedOnboarding) || !m_mayCapture())
        return wanted;
    for (const MenuEntry& command : CommandTable::menuInHotkeyOrder())
        for (const Chord& chord : chords)
            if (HotkeySettings::combo(m_preferences, command) == chord.combo)
                wanted.insert(chord.symbolicHotKey);
    return wanted;
}

void SystemShortcutManager::reconcile(const std::set<int>& target)
{
    if (!m_switches)
        return;
    m_target = target;
    // The main loop may be about to end; the notes go when what this does is confirmed.
    if (target.empty())
        giveBackAtOnce();
    if (!std::exchange(m_isWorking, true))
        Scope::start(work(), "Switching the desktop's shortcuts");
}

void SystemShortcutManager::whenSettled(std::function<void()> done)
{
    if (m_isWorking)
        m_waiting.push_back(std::move(done));
    else
        done();
}

void SystemShortcutManager::giveBackAtOnce()
{
    std::vector<Change> changes;
    for (const TakenShortcut& shortcut : takenShortcuts())
        changes.push_back({{shortcut.original.id, shortcut.left()}, shortcut.original.accelerators});
    if (!changes.empty())
        m_workers.submit(Lane::utility, [switches = m_switches, changes] { apply(*switches, changes); });
}

// One target after the other, until the newest one is reached.
QCoro::Task<> SystemShortcutManager::work()
{
    const auto atEnd = qScopeGuard([this] { m_isWorking = false; });
    std::optional<std::set<int>> reached;
    while (reached != m_target) {
        const std::set<int> target = *m_target;
        co_await switchOnAllBut(target);
        if (m_target == target && !target.empty())
            co_await switchOff(target);
        reached = target;
    }
    m_isWorking = false;
    for (const auto& done : std::exchange(m_waiting, {}))
        done();
}

// The note of a shortcut goes only once the desktop has it back.
QCoro::Task<> SystemShortcutManager::switchOnAllBut(std::set<int> target)
{
    const auto remaining = [this, &target](TakenShortcut shortcut) {
        shortcut.taken.removeIf([&](const QString& accelerator) {
            const auto number = symbolicHotKey(accelerator);
            return !number || !target.contains(*number);
        });
        return shortcut;
    };
    std::vector<Change> changes;
    for (const TakenShortcut& shortcut : takenShortcuts())
        if (const TakenShortcut rest = remaining(shortcut); rest.left() != shortcut.left())
            changes.push_back({{shortcut.original.id, shortcut.left()}, rest.left()});
    if (changes.empty())
        co_return;
    const QStringList settled =
        co_await m_scope.onWorker(Lane::utility, [s = m_switches, changes] { return apply(*s, changes); });
    std::vector<TakenShortcut> shortcuts = takenShortcuts();
    for (TakenShortcut& shortcut : shortcuts)
        if (settled.contains(shortcut.original.id))
            shortcut = remaining(shortcut);
    std::erase_if(shortcuts, [](const TakenShortcut& shortcut) { return shortcut.taken.isEmpty(); });
    store(shortcuts);
}

// The note is written ahead of the change.
QCoro::Task<> SystemShortcutManager::switchOff(std::set<int> target)
{
    const auto present = co_await m_scope.onWorker(Lane::utility, [s = m_switches] { return s->shortcuts(); });
    if (m_target != target)
        co_return;
    std::vector<TakenShortcut> shortcuts = takenShortcuts();
    std::vector<Change> changes;
    for (const ShortcutSwitches::Shortcut& shortcut : present)
        if (take(shortcut, target, shortcuts))
            changes.push_back({shortcut, shortcuts.back().left()});
    if (changes.empty())
        co_return;
    const auto noted = co_await m_scope.reply<UserDefaults::Stored>(
        [&](const Reply<UserDefaults::Stored>& done) { store(shortcuts, done); });
    if (!noted) {
        qCWarning(log, "The desktop keeps its shortcuts: what is borrowed can't be noted");
        co_return;
    }
    co_await m_scope.onWorker(Lane::utility, [s = m_switches, changes] { apply(*s, changes); });
    if (m_target == target)
        m_switchedOff.notify();
}

// Notes, as the last one, what is taken from a shortcut. An older note holds as long as the shortcut is what we left of
// it; otherwise the user has changed it since.
bool SystemShortcutManager::take(const ShortcutSwitches::Shortcut& shortcut, const std::set<int>& target,
                                 std::vector<TakenShortcut>& shortcuts) const
{
    QStringList taken = shortcut.accelerators;
    taken.removeIf([&](const QString& accelerator) {
        const auto number = symbolicHotKey(accelerator);
        return !number || !target.contains(*number);
    });
    if (taken.isEmpty())
        return false;
    TakenShortcut note{shortcut, {}};
    const auto older = std::ranges::find(shortcuts, shortcut.id, [](const auto& known) { return known.original.id; });
    if (older != shortcuts.end()) {
        if (older->left() == shortcut.accelerators)
            note = *older;
        shortcuts.erase(older);
    }
    note.taken += taken;
    shortcuts.push_back(note);
    return true;
}

std::optional<int> SystemShortcutManager::symbolicHotKey(const QString& accelerator) const
{
    const auto found = std::ranges::find(chords, m_switches->combo(accelerator),
                                         [](const Chord& chord) { return std::optional(chord.combo); });
    return found == chords.end() ? std::nullopt : std::optional(found->symbolicHotKey);
}

QStringList SystemShortcutManager::borrowedKeys() const
{
    const std::set<int> borrowed = disabledByUs();
    QStringList keys;
    for (const Chord& chord : chords)
        if (borrowed.contains(chord.symbolicHotKey))
            keys << chord.combo.title();
    return keys;
}

void SystemShortcutManager::giveBack()
{
    const QStringList borrowed = borrowedKeys();
    for (const MenuEntry& command : CommandTable::menuInHotkeyOrder())
        if (const auto combo = HotkeySettings::combo(m_preferences, command);
            combo && borrowed.contains(combo->title()))
            m_preferences.set(HotkeySettings::keyOf(*command.hotkey), std::nullopt);
}

std::set<int> SystemShortcutManager::disabledByUs() const
{
    std::set<int> numbers;
    for (const QString& number : m_preferences.get(Settings::disabledNativeHotkeys))
        numbers.insert(number.toInt());
    return numbers;
}

std::vector<TakenShortcut> SystemShortcutManager::takenShortcuts() const
{
    return TakenShortcuts::fromJson(m_preferences.get(Settings::takenDesktopShortcuts));
}

void SystemShortcutManager::store(const std::vector<TakenShortcut>& shortcuts,
                                  const Reply<UserDefaults::Stored>& stored)
{
    std::set<int> numbers;
    for (const TakenShortcut& shortcut : shortcuts)
        for (const QString& accelerator : shortcut.taken)
            numbers.insert(symbolicHotKey(accelerator).value_or(0));
    QStringList texts;
    for (const int number : numbers)
        texts << QString::number(number);
    if (shortcuts.empty()) {
        m_preferences.remove(Settings::takenDesktopShortcuts);
        m_preferences.remove(Settings::disabledNativeHotkeys);
    } else {
        m_preferences.set(Settings::takenDesktopShortcuts, TakenShortcuts::toJson(shortcuts), stored);
        m_preferences.set(Settings::disabledNativeHotkeys, texts);
    }
}

} // namespace Kovrel
