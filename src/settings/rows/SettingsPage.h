#pragma once

#include "settings/rows/SettingRow.h"
#include "settings/rows/SettingsTab.h"

namespace Kovrel {

// What users may change of a capability, and the tab on which they find it.
struct SettingsPage {
    SettingsTab tab = SettingsTab::general;
    std::vector<SettingGroup> groups;
};

} // namespace Kovrel
