#pragma once

#include "model/CaptureMode.h"

#include <QString>

#include <optional>
#include <span>

namespace Kovrel {

// The nine commands of the menu, in its order.
namespace CaptureCommands {

enum class Action { capture, pickColor, recentCaptures, reopenClosed };

struct Entry {
    const char* label;
    const char* hotkey; // the setting that holds its key combination
    Action action;
    std::optional<CaptureMode> mode = {}; // of a capture
};

std::span<const Entry> entries();

} // namespace CaptureCommands

} // namespace Kovrel
