#pragma once

#include "platform/Displays.h"
#include "platform/MainLoop.h"
#include "platform/Workers.h"
#include "ports/Ports.h"
#include "preferences/Preferences.h"

#include <QString>

namespace Kovrel {

// What cards are built on. All of it outlives them.
struct CardServices {
    MainLoop& loop;
    Workers& workers;
    Preferences& preferences;
    Displays& displays;
    Ports& ports;
    QString temporaryFolder; // the user's own
};

} // namespace Kovrel
