#pragma once

#include "hotkeys/HotkeyAction.h"
#include "model/CaptureMode.h"
#include "preferences/Settings.h"

#include <QString>

#include <optional>
#include <span>

namespace Kovrel {

// The nine commands of the menu, which are those of the global hotkeys too.
namespace CaptureCommands {

enum class Action { capture, pickColor, recentCaptures, reopenClosed };

struct Entry {
    HotkeyAction hotkeyAction;
    const char* label;
    const SettingKey<Hotkey>* hotkey; // the setting that holds its key combination
    Action action;
    std::optional<CaptureMode> mode = {}; // of a capture
};

// As the menu has them.
std::span<const Entry> entries();
// As they are registered.
std::span<const Entry> inHotkeyOrder();
// Whether this is the name of a setting that holds the key combination of one.
bool isHotkeySetting(const QString& name);

} // namespace CaptureCommands

} // namespace Kovrel
