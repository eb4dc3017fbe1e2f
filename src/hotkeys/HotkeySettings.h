#pragma once

#include "commandline/CommandTable.h"
#include "preferences/Preferences.h"

#include <optional>

namespace Kovrel {

// Which settings hold the key combinations of commands.
namespace HotkeySettings {

const SettingKey<Hotkey>& keyOf(HotkeyAction action);

// No value for a command without a combination.
std::optional<KeyCombo> combo(const Preferences& preferences, const MenuEntry& entry);

// Whether this is the name of such a setting.
bool isOne(const QString& name);

} // namespace HotkeySettings

} // namespace Kovrel
