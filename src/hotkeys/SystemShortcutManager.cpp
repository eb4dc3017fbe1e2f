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

void apply(ShortcutSwitches& switches, const std::vector<Change>& changes)
{
    const auto present = switches.shortcuts();
    for (const auto& [before, after] : changes)
        if (std::ranges::find(present, before) != present.end() && !switches.set({before.id, after}))
            qCWarning(log, "The desktop's shortcut %s can't be changed", qUtf8Printable(before.id));
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
    ++m_generation;
    switchOnAllBut(target);
    if (!target.empty())
        Scope::start(switchOff(target, m_generation), "Switching the desktop's shortcuts off");
}

// The note is removed behind the change: jobs and settings are written on the same lane.
void SystemShortcutManager::switchOnAllBut(const std::set<int>& target)
{
    std::vector<TakenShortcut> shortcuts = takenShortcuts();
    std::vector<Change> changes;
    for (TakenShortcut& shortcut : shortcuts) {
        const ShortcutSwitches::Shortcut before{shortcut.original.id, shortcut.left()};
        shortcut.taken.removeIf([&](const QString& accelerator) {
            const auto number = symbolicHotKey(accelerator);
            return !number || !target.contains(*number);
        });
        if (shortcut.left() != before.accelerators)
            changes.push_back({before, shortcut.left()});
    }
    if (changes.empty())
        return;
    m_workers.submit(Lane::utility, [switches = m_switches, changes] { apply(*switches, changes); });
    std::erase_if(shortcuts, [](const TakenShortcut& shortcut) { return shortcut.taken.isEmpty(); });
    store(shortcuts);
}

// The note is written ahead of the change.
QCoro::Task<> SystemShortcutManager::switchOff(std::set<int> target, int generation)
{
    const auto present = co_await m_scope.onWorker(Lane::utility, [s = m_switches] { return s->shortcuts(); });
    if (generation != m_generation)
        co_return;
    std::vector<TakenShortcut> shortcuts = takenShortcuts();
    std::vector<Change> changes;
    for (const ShortcutSwitches::Shortcut& shortcut : present)
        if (take(shortcut, target, shortcuts))
            changes.push_back({shortcut, shortcuts.back().left()});
    if (changes.empty())
        co_return;
    store(shortcuts);
    co_await m_scope.onWorker(Lane::utility, [s = m_switches, changes] { apply(*s, changes); });
    if (generation == m_generation)
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

void SystemShortcutManager::store(const std::vector<TakenShortcut>& shortcuts)
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
        m_preferences.set(Settings::takenDesktopShortcuts, TakenShortcuts::toJson(shortcuts));
        m_preferences.set(Settings::disabledNativeHotkeys, texts);
    }
}

} // namespace Kovrel
