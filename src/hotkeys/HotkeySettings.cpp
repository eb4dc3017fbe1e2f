#include "hotkeys/HotkeySettings.h"

#include <algorithm>

namespace Kovrel {

const SettingKey<Hotkey>& HotkeySettings::keyOf(HotkeyAction action)
{
    switch (action) {
    case HotkeyAction::area:
        return Settings::hotkeyArea;
    case HotkeyAction::fullScreen:
        return Settings::hotkeyFullScreen;
    case HotkeyAction::window:
        return Settings::hotkeyWindow;
    case HotkeyAction::lastArea:
        return Settings::hotkeyLastArea;
    case HotkeyAction::selfTimer:
        return Settings::hotkeySelfTimer;
    case HotkeyAction::extractText:
        return Settings::hotkeyExtractText;
    case HotkeyAction::pickColor:
        return Settings::hotkeyPickColor;
    case HotkeyAction::reopenClosedCapture:
        return Settings::hotkeyReopenClosedCapture;
    case HotkeyAction::history:
        return Settings::hotkeyHistory;
    case HotkeyAction::measure:
        return Settings::hotkeyMeasure;
    }
    Q_UNREACHABLE();
}

std::optional<KeyCombo> HotkeySettings::combo(const Preferences& preferences, const MenuEntry& entry)
{
    return entry.hotkey ? preferences.get(keyOf(*entry.hotkey)) : std::nullopt;
}

bool HotkeySettings::isOne(const QString& name)
{
    return std::ranges::any_of(CommandTable::menuInHotkeyOrder(),
                               [&](const MenuEntry& entry) { return name == keyOf(*entry.hotkey).name; });
}

} // namespace Kovrel
