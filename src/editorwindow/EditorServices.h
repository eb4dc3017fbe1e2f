#pragma once

#include "ports/Ports.h"

namespace Kovrel {

class FilePrograms;
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
    FilePrograms* programs = nullptr; // without them nobody is asked about the program for pictures
};

} // namespace Kovrel
