#pragma once

#include "settings/rows/SettingsPage.h"

#include <QCoreApplication>

namespace Kovrel {

// How the program starts, and its settings as a whole.
class GeneralPage {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::GeneralPage)

public:
    struct Services {
        SettingBinding loginItem; // a boolean
        std::function<void(Reply<SettingRemark>)> loginRemark;
        std::function<void(QWindow* parent)> exportSettings;
        std::function<void(QWindow* parent)> importSettings;
    };

    static SettingsPage make(Preferences& preferences, Services services);
};

} // namespace Kovrel
