#pragma once

#include "platform/files/UserDefaults.h"
#include "preferences/SettingValue.h"

#include <QHash>
#include <QVariant>

#include <span>

namespace Kovrel {

// One setting: its key, what it holds, and the value it reads as while the user has set none.
struct Setting {
    const char* key;
    SettingType type;
    QVariant registered; // invalid: nothing registered, reads as the type's zero
    const char* meaning;
    QStringList choices = {}; // the texts that an enumerated setting knows; empty: any
};

// All settings of the program: the one table of them.
namespace PreferenceTable {

std::span<const Setting> settings();

// The setting of a key; for "annotationColorHex.arrow" and the like that of the tool's own value, which is typed and
// chosen as the global one and has nothing registered. No setting for an unknown key.
std::optional<Setting> find(const QString& key);

// Those of `settings`, and those of tools.
QStringList keys();

// What a setting is now, of its type, and as people read such a value.
QVariant value(const UserDefaults& defaults, const QString& key, SettingType type);
QString text(const QVariant& value, SettingType type);

QHash<QString, QVariant> registeredDefaults();

} // namespace PreferenceTable

} // namespace Kovrel
