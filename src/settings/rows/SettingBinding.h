#pragma once

#include "preferences/Preferences.h"

namespace Kovrel {

// What a control of the settings shows and changes, as a plain value. Main thread.
struct SettingBinding {
    QString key = {}; // of the PreferenceTable; empty for what is kept elsewhere
    std::function<QVariant()> read = {};
    std::function<void(const QVariant&)> write = {};
    std::function<void()> reset = {};                                // null: there is nothing to go back to
    std::function<bool()> isChanged = {};                            // from what it is while nobody has set it
    std::function<Subscription(std::function<void()>)> observe = {}; // null: a change is one of the preferences

    // Of a preference; its value is the one that is stored.
    template <class T>
    static SettingBinding of(Preferences& preferences, const SettingKey<T>& key)
    {
        return {.key = key.name,
                .read = [&preferences, key] { return SettingValue<T>::stored(preferences.get(key)); },
                .write = [&preferences, key](const QVariant& value) { preferences.defaults().set(key.name, value); },
                .reset = [&preferences, key] { preferences.remove(key); },
                .isChanged = [&preferences, key] { return preferences.get(key) != key.fallback; }};
    }

    // Whether one of the actions follows a capture.
    static SettingBinding of(Preferences& preferences, AfterCaptureAction action);
    // The path of the folder for captures.
    static SettingBinding saveFolder(Preferences& preferences);
};

} // namespace Kovrel
