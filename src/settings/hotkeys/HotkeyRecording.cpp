#include "settings/hotkeys/HotkeyRecording.h"

#include "model/VirtualKeys.h"

namespace Kovrel {

HotkeyRecording::Outcome HotkeyRecording::of(const KeyGrabs::Typed& typed)
{
    if (!typed.keyCode)
        return Waiting{.modifiers = typed.modifiers};
    const KeyCombo combo{*typed.keyCode, typed.modifiers};
    if (combo == KeyCombo{VirtualKeys::escape, 0})
        return Cancelled();
    if (combo == KeyCombo{VirtualKeys::backspace, 0})
        return Recorded();
    if (!combo.canBeHotkey())
        return Waiting{.modifiers = typed.modifiers, .needsModifier = true};
    return Recorded{combo};
}

} // namespace Kovrel
