#pragma once

#include "ports/Ports.h"

namespace Kovrel {

class MainLoop;
class Preferences;
class SavePanel;
class Workers;

// What editors are built on. All of it outlives them.
struct EditorServices {
    MainLoop& loop;
    Workers& workers;
    Preferences& preferences;
    SavePanel& savePanel;
    Ports& ports;
};

} // namespace Kovrel
