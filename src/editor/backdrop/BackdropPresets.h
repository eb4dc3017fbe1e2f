#pragma once

#include "editor/backdrop/EditorBackdrop.h"
#include "preferences/Preferences.h"

#include <vector>

namespace Kovrel {

struct BackdropPreset {
    QString name;
    EditorBackdrop backdrop;
    bool operator==(const BackdropPreset&) const = default;
};

// The backdrops that the user saved under names, and the one used last. They are stored with the preferences, as JSON
// lists of "name" and "backdrop". Main thread.
namespace BackdropPresets {

// An entry that can't be read is left out, and loses no other one.
std::vector<BackdropPreset> stored(const Preferences& preferences);
void store(const std::vector<BackdropPreset>& presets, Preferences& preferences);

// A name is a preset's own: saving under it once more replaces the preset where it is, a new one is added at the end.
// Blanks around a name do not count; without a name or with a backdrop that is none nothing is saved.
void save(const BackdropPreset& preset, Preferences& preferences);
// Where it is; one that has the new name is replaced. Nothing without a name.
void rename(const QString& from, const QString& to, Preferences& preferences);
void remove(const QString& name, Preferences& preferences);

// A new backdrop where there is none yet.
EditorBackdrop last(const Preferences& preferences);
void setLast(const EditorBackdrop& backdrop, Preferences& preferences);

} // namespace BackdropPresets

} // namespace Kovrel
