#pragma once

namespace Kovrel {

// What a global key combination does, in the order in which they are registered. `CommandTable` says what each of them
// runs.
enum class HotkeyAction {
    area,
    fullScreen,
    window,
    lastArea,
    selfTimer,
    extractText,
    pickColor,
    reopenClosedCapture,
    history,
    measure,
};

} // namespace Kovrel
