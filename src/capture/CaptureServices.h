#pragma once

#include "ports/Ports.h"

#include <functional>

namespace Kovrel {

class CaptureTrace;
class Displays;
class KeyGrabs;
class MainLoop;
class PixelSource;
class Pointer;
class Preferences;
class ScreenPixels;
class SelectionGrabber;
class SelectionOverlay;
class WindowBackdrop;
class Windows;
class Workers;

// Everything a capture needs of the rest of the program; all of it outlives the coordinator.
struct CaptureServices {
    MainLoop& loop;
    Workers& workers;
    Preferences& preferences;
    CaptureTrace& trace;

    Displays& displays;
    Pointer& pointer;
    ScreenPixels& pixels;
    Windows& windows;
    KeyGrabs& keys;
    PixelSource& engine;

    SelectionOverlay& overlay;
    SelectionGrabber& grabber;
    WindowBackdrop& backdrop;

    // Whether this desktop gives us its pixels; shows no prompt.
    std::function<bool()> mayRecordScreen;
    const Ports& ports;
};

} // namespace Kovrel
