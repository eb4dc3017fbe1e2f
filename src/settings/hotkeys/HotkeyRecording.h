#pragma once

#include "platform/KeyGrabs.h"

#include <variant>

namespace Kovrel {

// What comes of the keys that are typed while a new hotkey is waited for. Stateless.
namespace HotkeyRecording {

struct Waiting { // for more
    quint32 modifiers = 0;
    bool needsModifier = false; // what was typed would be missing in texts

    bool operator==(const Waiting&) const = default;
};

struct Cancelled {
    bool operator==(const Cancelled&) const = default;
};

struct Recorded {
    std::optional<KeyCombo> combo; // none: the hotkey is cleared

    bool operator==(const Recorded&) const = default;
};

using Outcome = std::variant<Waiting, Cancelled, Recorded>;

// Escape and Backspace by themselves cancel and clear; with modifiers they are keys like any other.
Outcome of(const KeyGrabs::Typed& typed);

} // namespace HotkeyRecording

} // namespace Kovrel
