#pragma once

#include "preferences/SettingValue.h"
#include "settings/rows/SettingControl.h"

namespace Kovrel {

namespace SettingOptions {

// What there is to choose of an enumeration, with what people read of each.
template <class T>
SettingControls::Choice choice(std::initializer_list<std::pair<T, QString>> titles)
{
    SettingControls::Choice choice;
    for (const auto& [value, title] : titles)
        choice.options.push_back({SettingValue<T>::stored(value), title});
    return choice;
}

// A share of one, read in percent.
inline SettingControls::Slider percent(double least, double most, double step)
{
    return {.least = least, .most = most, .step = step, .text = [](double share) {
                return QString("%1 %").arg(qRound(100 * share));
            }};
}

} // namespace SettingOptions

} // namespace Kovrel
