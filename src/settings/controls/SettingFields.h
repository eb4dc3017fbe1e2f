#pragma once

#include "settings/controls/SettingField.h"
#include "settings/rows/SettingControl.h"

namespace Kovrel {

namespace SettingFields {

// The field for a kind of control; it belongs to whoever asks.
SettingField* make(const SettingControl& control);

} // namespace SettingFields

} // namespace Kovrel
