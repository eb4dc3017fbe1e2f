#pragma once

namespace Kovrel {

class CaptureAccess;
class CaptureChrome;
class CaptureDelivery;
class CaptureEffects;
class PixelSource;
class CaptureHistory;
class CaptureTrace;
class CardPile;
class Displays;
class KeyGrabs;
class MainLoop;
class Pointer;
class Preferences;
class ReopenLedger;
class ScreenPixels;
class SelectionGrabber;
class SelectionOverlay;
class TextReader;
class Toasts;
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

    CaptureAccess& access;
    SelectionOverlay& overlay;
    SelectionGrabber& grabber;
    WindowBackdrop& backdrop;
    CaptureEffects& effects;
    TextReader& textReader;

    CardPile& cards;
    CaptureChrome& historyWindow;
    Toasts& toasts;
    CaptureHistory& history;
    ReopenLedger& ledger;
    CaptureDelivery& delivery;
};

} // namespace Kovrel
