#pragma once

#include "settings/rows/SettingsPage.h"

#include <QCoreApplication>

namespace Kovrel {

// Whether captures are kept, and how many.
class HistoryPage {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::HistoryPage)

public:
    struct Services {
        Preferences& preferences;
        std::function<int()> unsavedCount;           // captures that turning the history off deletes
        std::function<int(int retention)> surplusOf; // captures that such a retention deletes
    };

    static SettingsPage make(const Services& services);

private:
    static SettingRow enabled(const Services& services);
    static SettingRow retention(const Services& services);
};

} // namespace Kovrel
