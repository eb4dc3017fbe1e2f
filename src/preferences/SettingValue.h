#pragma once

#include "model/AfterCaptureActions.h"
#include "model/KeyCombo.h"
#include "platform/files/UserDefaults.h"
#include "preferences/SettingKey.h"

#include <algorithm>
#include <limits>

namespace Kovrel {

enum class SettingType { boolean, integer, real, text, data, textList, keyCombo };

// A key combination, or none.
using Hotkey = std::optional<KeyCombo>;

// How the values of a type are stored and read. Those of an enumeration are stored as their raw strings.
template <class T>
struct SettingValue {
    static constexpr SettingType type = SettingType::text;

    static QVariant stored(T value) { return rawString(value); }

    static T read(const UserDefaults& defaults, const SettingKey<T>& key)
    {
        return fromRawString<T>(defaults.text(key.name)).value_or(key.fallback);
    }
};

template <class T, SettingType storedType, T (UserDefaults::*readAs)(const QString&) const>
struct PlainSettingValue {
    static constexpr SettingType type = storedType;

    static QVariant stored(const T& value) { return value; }

    static T read(const UserDefaults& defaults, const SettingKey<T>& key) { return (defaults.*readAs)(key.name); }
};

template <>
struct SettingValue<bool> : PlainSettingValue<bool, SettingType::boolean, &UserDefaults::boolean> {};

template <>
struct SettingValue<double> : PlainSettingValue<double, SettingType::real, &UserDefaults::real> {};

template <>
struct SettingValue<QString> : PlainSettingValue<QString, SettingType::text, &UserDefaults::text> {};

template <>
struct SettingValue<QByteArray> : PlainSettingValue<QByteArray, SettingType::data, &UserDefaults::data> {};

template <>
struct SettingValue<QStringList> : PlainSettingValue<QStringList, SettingType::textList, &UserDefaults::textList> {};

// The nearest one to what is stored.
template <>
struct SettingValue<int> {
    static constexpr SettingType type = SettingType::integer;

    static QVariant stored(int value) { return value; }

    static int read(const UserDefaults& defaults, const SettingKey<int>& key)
    {
        using Limits = std::numeric_limits<int>;
        return int(std::clamp<qint64>(defaults.integer(key.name), Limits::min(), Limits::max()));
    }
};

template <>
struct SettingValue<AfterCaptureActions> {
    static constexpr SettingType type = SettingType::integer;

    static QVariant stored(AfterCaptureActions value) { return value.toInt(); }

    static AfterCaptureActions read(const UserDefaults& defaults, const SettingKey<AfterCaptureActions>& key)
    {
        return AfterCaptureActions::fromInt(int(defaults.integer(key.name)));
    }
};

template <>
struct SettingValue<Hotkey> {
    static constexpr SettingType type = SettingType::keyCombo;

    static QVariant stored(Hotkey value) { return value ? value->stored() : 0; }

    static Hotkey read(const UserDefaults& defaults, const SettingKey<Hotkey>& key)
    {
        return KeyCombo::fromStored(defaults.integer(key.name));
    }
};

} // namespace Kovrel
