#include "hotkeys/CaptureCommands.h"

#include <array>

namespace Kovrel {

namespace {

using CaptureCommands::Action;
using CaptureCommands::Entry;
using enum HotkeyAction;

// At the places of their actions' numbers.
constexpr std::array table{
    Entry{area, "Capture Area", "hotkeyArea", Action::capture, CaptureMode::area},
    Entry{fullScreen, "Capture Full Screen", "hotkeyFullScreen", Action::capture, CaptureMode::fullScreen},
    Entry{window, "Capture Window", "hotkeyWindow", Action::capture, CaptureMode::window},
    Entry{lastArea, "Capture Last Area", "hotkeyLastArea", Action::capture, CaptureMode::lastArea},
    Entry{selfTimer, "Capture with Self-Timer", "hotkeySelfTimer", Action::capture, CaptureMode::timed},
    Entry{extractText, "Extract Text", "hotkeyExtractText", Action::capture, CaptureMode::ocrRegion},
    Entry{pickColor, "Pick Color", "hotkeyPickColor", Action::pickColor},
    Entry{reopenClosedCapture, "Reopen Closed Capture", "hotkeyReopenClosedCapture", Action::reopenClosed},
    Entry{history, "Recent Captures", "hotkeyHistory", Action::recentCaptures},
};

constexpr std::array menuOrder{area,        window,    fullScreen, lastArea,           selfTimer,
                               extractText, pickColor, history,    reopenClosedCapture};

constexpr auto menu = [] {
    auto entries = table;
    for (size_t place = 0; place < menuOrder.size(); ++place)
        entries[place] = table[size_t(menuOrder[place])];
    return entries;
}();

} // namespace

std::span<const Entry> CaptureCommands::entries()
{
    return menu;
}

std::span<const Entry> CaptureCommands::inHotkeyOrder()
{
    return table;
}

} // namespace Kovrel
