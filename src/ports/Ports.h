#pragma once

#include "ports/Port.h"

#include <vector>

namespace Kovrel {

class AccountStatus;
class CaptureChrome;
class CaptureDelivery;
class CaptureEditors;
class CaptureEffects;
class CaptureFiles;
class CaptureHistory;
class CapturePins;
class Captures;
class CardPile;
class ColorPicking;
class EditedCaptures;
class HelpWindows;
class HotkeyStatus;
class PicturePreviews;
class ProgramCommands;
class ReopenLedger;
class SettingsPages;
class TextReader;
class Toasts;

// How the parts of the program meet. A part offers its port before anything is captured; what it offers lives as long
// as the program runs.
struct Ports {
    Port<ProgramCommands> commands;
    Port<AccountStatus> account; // without one nobody has to sign in
    Port<HelpWindows> help;
    Port<HotkeyStatus> hotkeys;
    Port<SettingsPages> settings;
    Port<ColorPicking> colorPicking;

    Port<Captures> captures;
    Port<CaptureDelivery> delivery;
    Port<CaptureEffects> effects;
    Port<TextReader> textReader;

    Port<CaptureHistory> history;
    Port<CaptureFiles> files;
    Port<ReopenLedger> ledger;
    Port<CardPile> cards;
    Port<CaptureEditors> editors;
    Port<EditedCaptures> edits;
    Port<CapturePins> pins;
    Port<PicturePreviews> previews; // without one the desktop's viewer shows pictures
    Port<Toasts> toasts;

    // Windows that step aside for a capture, besides cards and toasts.
    std::vector<CaptureChrome*> chrome;
};

} // namespace Kovrel
