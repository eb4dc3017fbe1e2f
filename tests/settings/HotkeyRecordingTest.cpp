#include "settings/hotkeys/HotkeyRecording.h"

#include "model/VirtualKeys.h"

#include <gtest/gtest.h>

namespace Kovrel {

using namespace HotkeyRecording;

TEST(HotkeyRecording, TakesWhatLeavesTypingAlone)
{
    constexpr auto super = KeyCombo::command;
    constexpr auto control = KeyCombo::control;

    struct Case {
        KeyGrabs::Typed typed;
        Outcome outcome;
    };

    const Case cases[] = {
        {{super, {}}, Waiting{.modifiers = super}},
        {{0, {}}, Waiting{}},
        {{super, VirtualKeys::digit4}, Recorded{KeyCombo{VirtualKeys::digit4, super}}},
        {{0, VirtualKeys::a}, Waiting{.needsModifier = true}},
        {{0, VirtualKeys::print}, Recorded{KeyCombo{VirtualKeys::print, 0}}},
        {{0, VirtualKeys::escape}, Cancelled{}},
        {{control, VirtualKeys::escape}, Recorded{KeyCombo{VirtualKeys::escape, control}}},
        {{0, VirtualKeys::backspace}, Recorded{}},
        {{control, VirtualKeys::backspace}, Recorded{KeyCombo{VirtualKeys::backspace, control}}},
    };
    for (const auto& [typed, outcome] : cases)
        EXPECT_EQ(HotkeyRecording::of(typed), outcome) << typed.modifiers << ' ' << typed.keyCode.value_or(999);
}

} // namespace Kovrel
