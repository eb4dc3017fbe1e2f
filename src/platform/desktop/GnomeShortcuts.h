#pragma once

#include "platform/ShortcutSwitches.h"

namespace Kovrel {

// GNOME's settings, read and written by the `gsettings` program that every GNOME has: the library behind it would load
// a settings daemon's client into the program for good, to change three values at most.
class GnomeShortcuts : public ShortcutSwitches {
public:
    std::vector<Shortcut> shortcuts() override;
    bool set(const Shortcut& shortcut) override;
    std::optional<KeyCombo> combo(const QString& accelerator) const override;
};

} // namespace Kovrel
