#include "app/CaptureCommands.h"

#include <array>

namespace Kovrel {

namespace {

using CaptureCommands::Action;

constexpr std::array table{
    CaptureCommands::Entry{"Capture Area", "hotkeyArea", Action::capture, CaptureMode::area},
    CaptureCommands::Entry{"Capture Window", "hotkeyWindow", Action::capture, CaptureMode::window},
    CaptureCommands::Entry{"Capture Full Screen", "hotkeyFullScreen", Action::capture, CaptureMode::fullScreen},
    CaptureCommands::Entry{"Capture Last Area", "hotkeyLastArea", Action::capture, CaptureMode::lastArea},
    CaptureCommands::Entry{"Capture with Self-Timer", "hotkeySelfTimer", Action::capture, CaptureMode::timed},
    CaptureCommands::Entry{"Extract Text", "hotkeyExtractText", Action::capture, CaptureMode::ocrRegion},
    CaptureCommands::Entry{"Pick Color", "hotkeyPickColor", Action::pickColor},
    CaptureCommands::Entry{"Recent Captures", "hotkeyHistory", Action::recentCaptures},
    CaptureCommands::Entry{"Reopen Closed Capture", "hotkeyReopenClosedCapture", Action::reopenClosed},
};

} // namespace

std::span<const CaptureCommands::Entry> CaptureCommands::entries()
{
    return table;
}

} // namespace Kovrel
