#pragma once

#include "model/EditorTool.h"

namespace Kovrel {

// The key of a setting, and with it the type of what the setting holds.
template <class T>
struct SettingKey {
    QString name;
    T fallback{}; // of an enumeration: what an unknown text reads as

    // A tool of the editor may have a value of its own.
    SettingKey of(EditorTool tool) const { return {name + '.' + rawString(tool), fallback}; }
};

} // namespace Kovrel
