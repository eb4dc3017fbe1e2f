#include "hotkeys/CaptureCommands.h"

#include <algorithm>
#include <array>

namespace Kovrel {

namespace {

using CaptureCommands::Action;
using CaptureCommands::Entry;
using enum HotkeyAction;

// At the places of their actions' numbers.
constexpr std::array table{
    Entry{area, "Capture Area", &Settings::hotkeyArea, Action::capture, CaptureMode::area},
    Entry{fullScreen, "Capture Full Screen", &Settings::hotkeyFullScreen, Action::capture, CaptureMode::fullScreen},
    Entry{window, "Capture Window", &Settings::hotkeyWindow, Action::capture, CaptureMode::window},
    Entry{lastArea, "Capture Last Area", &Settings::hotkeyLastArea, Action::capture, CaptureMode::lastArea},
    Entry{selfTimer, "Capture with Self-Timer", &Settings::hotkeySelfTimer, Action::capture, CaptureMode::timed},
    Entry{extractText, "Extract Text", &Settings::hotkeyExtractText, Action::capture, CaptureMode::ocrRegion},
    Entry{pickColor, "Pick Color", &Settings::hotkeyPickColor, Action::pickColor},
    Entry{reopenClosedCapture, "Reopen Closed Capture", &Settings::hotkeyReopenClosedCapture, Action::reopenClosed},
    Entry{history, "Recent Captures", &Settings::hotkeyHistory, Action::recentCaptures},
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

bool CaptureCommands::isHotkeySetting(const QString& name)
{
    return std::ranges::any_of(table, [&](const Entry& command) { return command.hotkey->name == name; });
}

} // namespace Kovrel
