#pragma once

#include "settings/rows/SettingsPage.h"

#include <QCoreApplication>

namespace Kovrel {

// Where cards appear, and for how long.
class CardsPage {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::CardsPage)

public:
    // `help` is said of how long cards stay.
    static SettingsPage make(Preferences& preferences, const QString& help);

private:
    static SettingRow duration(Preferences& preferences, const QString& help);
};

} // namespace Kovrel
