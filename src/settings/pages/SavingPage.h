#pragma once

#include "settings/rows/SettingsPage.h"

#include <QCoreApplication>

namespace Kovrel {

class FilePanel;
class Workers;

// What happens with a capture, and how files are named, made and kept.
class SavingPage {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::SavingPage)

public:
    struct Services {
        MainLoop& loop;
        Workers& workers;
        FilePanel& panel;
        Preferences& preferences;
    };

    // What follows a capture, and how it is saved.
    static std::vector<SettingsPage> make(const Services& services);

    // What files of the template are called, or what is wrong with it.
    static SettingRemark templateRemark(const QString& fileNameTemplate, const QString& extension,
                                        const QDateTime& date);

private:
    static SettingGroup actions(Preferences& preferences);
    static SettingGroup files(const Services& services);
    static SettingGroup pictures(Preferences& preferences);
    static SettingRow folder(const Services& services);
    static SettingRow format(Preferences& preferences);
    static SettingRow fileName(const Services& services);
};

} // namespace Kovrel
