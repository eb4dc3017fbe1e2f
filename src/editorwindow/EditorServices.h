#pragma once

#include "ports/Ports.h"

namespace Kovrel {

class MainLoop;
class Preferences;
class FilePanel;
class Workers;

// What editors are built on. All of it outlives them.
struct EditorServices {
    MainLoop& loop;
    Workers& workers;
    Preferences& preferences;
    FilePanel& filePanel;
    Ports& ports;
};

} // namespace Kovrel
