#include "settings/rows/SettingBinding.h"

namespace Kovrel {

SettingBinding SettingBinding::of(Preferences& preferences, AfterCaptureAction action)
{
    const auto& key = Settings::afterCaptureActions;
    const auto isOn = [&preferences, action] { return preferences.get(key).testFlag(action); };
    const bool isUsual = key.fallback.testFlag(action);
    const auto set = [&preferences, action](bool on) {
        preferences.set(key, preferences.get(key).setFlag(action, on));
    };
    return {.key = key.name,
            .read = isOn,
            .write = [set](const QVariant& value) { set(value.toBool()); },
            .reset = [set, isUsual] { set(isUsual); },
            .isChanged = [isOn, isUsual] { return isOn() != isUsual; }};
}

// What was chosen is shown also where it has gone, and the default one where nothing was.
SettingBinding SettingBinding::saveFolder(Preferences& preferences)
{
    const auto& key = Settings::saveLocationBookmark;
    return {
        .key = key.name,
        .read =
            [&preferences] { return preferences.chosenSaveDirectory().value_or(Preferences::defaultSaveDirectory()); },
        .write = [&preferences](const QVariant& path) { preferences.setSaveDirectory(path.toString()); },
        .reset = [&preferences] { preferences.remove(key); },
        .isChanged = [&preferences] { return preferences.chosenSaveDirectory().has_value(); }};
}

} // namespace Kovrel
