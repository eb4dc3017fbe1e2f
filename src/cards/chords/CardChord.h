#pragma once

#include "cards/CardQuickAction.h"
#include "model/VirtualKeys.h"

#include <array>

namespace Kovrel {

// The usual shortcuts of documents, which act on the card under the pointer.
enum class CardChord { copy, save, edit, pin, close, closeAll };

// What a chord is made of: its key is the one that types the letter on the user's layout.
struct CardChordKeys {
    CardChord chord;
    CardQuickAction action;
    KeyCombo combo;

    // The same letter with Control, for where the desktop keeps the combination to itself.
    KeyCombo alternative() const { return {combo.keyCode, (combo.modifiers & ~KeyCombo::command) | KeyCombo::control}; }
};

inline constexpr std::array allCardChords{
    CardChordKeys{CardChord::copy, CardQuickAction::copy, {VirtualKeys::c, KeyCombo::command}},
    CardChordKeys{CardChord::save, CardQuickAction::save, {VirtualKeys::s, KeyCombo::command}},
    CardChordKeys{CardChord::edit, CardQuickAction::edit, {VirtualKeys::e, KeyCombo::command}},
    CardChordKeys{CardChord::pin, CardQuickAction::pin, {VirtualKeys::p, KeyCombo::command}},
    CardChordKeys{CardChord::close, CardQuickAction::close, {VirtualKeys::w, KeyCombo::command}},
    CardChordKeys{
        CardChord::closeAll, CardQuickAction::closeAll, {VirtualKeys::w, KeyCombo::command | KeyCombo::option}},
};

} // namespace Kovrel
