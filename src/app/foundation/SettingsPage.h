#pragma once

#include <QStringList>

namespace Kovrel {

// A page of the settings: what users may change of a capability.
struct SettingsPage {
    QString title;
    QStringList keys;  // of the PreferenceTable, in the order in which they are shown
    QString help = {}; // what is said below them
};

} // namespace Kovrel
