#pragma once

#include "hotkeys/HotkeyAction.h"
#include "model/CaptureMode.h"

#include <QString>

#include <optional>
#include <span>

namespace Kovrel {

// The nine commands of the menu, which are those of the global hotkeys too.
namespace CaptureCommands {

enum class Action { capture, pickColor, recentCaptures, reopenClosed };

struct Entry {
    HotkeyAction hotkeyAction;
    const char* label;  // in English
    const char* hotkey; // the setting that holds its key combination
    Action action;
    std::optional<CaptureMode> mode = {}; // of a capture
};

// What people read.
QString title(const Entry& entry);

// As the menu has them.
std::span<const Entry> entries();
// As they are registered.
std::span<const Entry> inHotkeyOrder();

} // namespace CaptureCommands

} // namespace Kovrel
