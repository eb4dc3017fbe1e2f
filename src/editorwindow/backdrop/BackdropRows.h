#pragma once

#include "editor/backdrop/BackdropFill.h"
#include "preferences/Preferences.h"

#include <vector>

namespace Kovrel {

// One fill that is offered.
struct BackdropChip {
    QString id; // of the catalogue; the hex text or the path of the user's own
    QString name;
    BackdropFill fill;
    bool isOwn = false; // of the user: it is not hidden but removed
    bool operator==(const BackdropChip&) const = default;
};

// The fills that are offered, row by row: those of the catalogue and the user's own colours and pictures, in the order
// that the user gave them, without those that the user has hidden. Everything is kept in the settings. Main thread.
namespace BackdropRows {

// What was never moved comes last, the catalogue's first.
std::vector<BackdropChip> shown(BackdropChips row, const Preferences& preferences);

// So that it is the `place`th of those that are shown.
void move(BackdropChips row, const QString& id, int place, Preferences& preferences);

// One of the user's own is forgotten.
void hide(BackdropChips row, const QString& id, Preferences& preferences);
bool hasHidden(BackdropChips row, const Preferences& preferences);
// All that are hidden come back, each to its place.
void restore(BackdropChips row, Preferences& preferences);

// Shown last; what is there already stays where it is. Colours are what HexColor parses, pictures are absolute paths;
// anything else is not added.
void addOwn(BackdropChips row, const QString& value, Preferences& preferences);

} // namespace BackdropRows

} // namespace Kovrel
