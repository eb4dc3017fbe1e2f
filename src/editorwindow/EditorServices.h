#pragma once

#include "ports/Ports.h"

#include <QString>

namespace Kovrel {

class Clipboard;
class FilePrograms;
class MainLoop;
class PicturePrinter;
class Preferences;
class FilePanel;
class Workers;

// What editors are built on. All of it outlives them.
struct EditorServices {
    MainLoop& loop;
    Workers& workers;
    Preferences& preferences;
    FilePanel& filePanel;
    Clipboard& clipboard;
    Ports& ports;
    QString temporaryFolder;           // the user's own
    PicturePrinter* printer = nullptr; // without one nothing is printed
    FilePrograms* programs = nullptr;  // without them nobody is asked about the program for pictures
};

} // namespace Kovrel
