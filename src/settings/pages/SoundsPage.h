#pragma once

#include "settings/rows/SettingsPage.h"

#include <QCoreApplication>

namespace Kovrel {

class CaptureEffects;

// What is heard.
class SoundsPage {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::SoundsPage)

public:
    static SettingsPage make(Preferences& preferences, CaptureEffects& effects);
};

} // namespace Kovrel
