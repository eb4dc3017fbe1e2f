#pragma once

#include "settings/rows/SettingsPage.h"

#include <QCoreApplication>

namespace Kovrel {

// How the editor behaves, and what new marks look like.
class EditorPage {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::EditorPage)

public:
    static SettingsPage make(Preferences& preferences, const ColorPick& pick = {});

private:
    static SettingGroup window(Preferences& preferences);
    static SettingGroup marks(Preferences& preferences, const ColorPick& pick);
    static SettingGroup kinds(Preferences& preferences);
};

} // namespace Kovrel
