#pragma once

#include "settings/rows/SettingsPage.h"

namespace Kovrel {

// What the parts of the program let users change. Main thread.
class SettingsPages {
public:
    virtual ~SettingsPages() = default;

    virtual std::vector<SettingsPage> settingsPages() = 0;
};

} // namespace Kovrel
