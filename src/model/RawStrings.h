#pragma once

#include <QString>
#include <QStringView>

#include <array>
#include <optional>
#include <utility>

namespace Kovrel {

// The one table from the cases of an enumeration to the raw strings that are persisted.
// Specialise it beside the enumeration:
//
//     template <> struct RawStrings<Fruit> {
//         static constexpr std::array table{std::pair{Fruit::apple, "apple"}, ...};
//     };
template <class Enum>
struct RawStrings;

template <class Enum>
QString rawString(Enum value)
{
    for (const auto& [candidate, text] : RawStrings<Enum>::table)
        if (candidate == value)
            return QString::fromLatin1(text);
    return {};
}

template <class Enum>
std::optional<Enum> fromRawString(QStringView text)
{
    for (const auto& [value, candidate] : RawStrings<Enum>::table)
        if (text == QLatin1StringView(candidate))
            return value;
    return std::nullopt;
}

} // namespace Kovrel
