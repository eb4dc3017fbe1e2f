#pragma once

#include "settings/rows/SettingsPage.h"

#include <QCoreApplication>

namespace Kovrel {

// Whether newer versions are looked for, and what was found.
class UpdatesPage {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::UpdatesPage)

public:
    struct Services {
        Preferences& preferences;
        std::function<std::optional<QString>()> newerVersion;
        std::function<Subscription(std::function<void()>)> onChange;
    };

    static SettingsPage make(const Services& services);
};

} // namespace Kovrel
