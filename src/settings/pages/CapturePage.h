#pragma once

#include "settings/rows/SettingsPage.h"

#include <QCoreApplication>

namespace Kovrel {

// How captures are taken.
class CapturePage {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::CapturePage)

public:
    static SettingsPage make(Preferences& preferences, const ColorPick& pick = {});

private:
    static SettingGroup screens(Preferences& preferences);
    static SettingGroup windows(Preferences& preferences, const ColorPick& pick);
    static SettingRow timer(Preferences& preferences);
};

} // namespace Kovrel
