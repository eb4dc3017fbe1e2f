#include "hotkeys/CaptureCommands.h"

#include <QCoreApplication>

#include <array>

namespace Kovrel {

namespace {

using CaptureCommands::Action;
using CaptureCommands::Entry;
using enum HotkeyAction;

// At the places of their actions' numbers.
constexpr std::array table{
    Entry{area, QT_TRANSLATE_NOOP("CaptureCommands", "Capture Area"), "hotkeyArea", Action::capture, CaptureMode::area},
    Entry{fullScreen, QT_TRANSLATE_NOOP("CaptureCommands", "Capture Full Screen"), "hotkeyFullScreen", Action::capture,
          CaptureMode::fullScreen},
    Entry{window, QT_TRANSLATE_NOOP("CaptureCommands", "Capture Window"), "hotkeyWindow", Action::capture,
          CaptureMode::window},
    Entry{lastArea, QT_TRANSLATE_NOOP("CaptureCommands", "Capture Last Area"), "hotkeyLastArea", Action::capture,
          CaptureMode::lastArea},
    Entry{selfTimer, QT_TRANSLATE_NOOP("CaptureCommands", "Capture with Self-Timer"), "hotkeySelfTimer",
          Action::capture, CaptureMode::timed},
    Entry{extractText, QT_TRANSLATE_NOOP("CaptureCommands", "Extract Text"), "hotkeyExtractText", Action::capture,
          CaptureMode::ocrRegion},
    Entry{pickColor, QT_TRANSLATE_NOOP("CaptureCommands", "Pick Color"), "hotkeyPickColor", Action::pickColor},
    Entry{reopenClosedCapture, QT_TRANSLATE_NOOP("CaptureCommands", "Reopen Closed Capture"),
          "hotkeyReopenClosedCapture", Action::reopenClosed},
    Entry{history, QT_TRANSLATE_NOOP("CaptureCommands", "Recent Captures"), "hotkeyHistory", Action::recentCaptures},
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

QString CaptureCommands::title(const Entry& entry)
{
    return QCoreApplication::translate("CaptureCommands", entry.label);
}

std::span<const Entry> CaptureCommands::entries()
{
    return menu;
}

std::span<const Entry> CaptureCommands::inHotkeyOrder()
{
    return table;
}

} // namespace Kovrel
