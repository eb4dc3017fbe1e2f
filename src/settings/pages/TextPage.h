#pragma once

#include "settings/rows/SettingsPage.h"

#include <QCoreApplication>

namespace Kovrel {

// The languages in which text is read.
class TextPage {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::TextPage)

public:
    // `installed` answers with the recogniser's names of its languages, as "deu" or "chi_sim".
    static SettingsPage make(Preferences& preferences, std::function<void(Reply<QStringList>)> installed);

    // What is offered: what is installed, then what is chosen or the desktop's and is not, each with its package.
    static std::vector<SettingControls::Language> languages(const QStringList& installed, const QStringList& chosen,
                                                            const QStringList& desktop);
};

} // namespace Kovrel
