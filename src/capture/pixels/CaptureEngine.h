#pragma once

#include "capture/pixels/CaptureError.h"
#include "platform/Displays.h"
#include "platform/Scope.h"
#include "platform/Windows.h"

#include <expected>
#include <vector>

namespace Kovrel {

// What may be captured. Main thread.
class CaptureEngine {
public:
    struct Content {
        DisplayList displays;            // never empty, the primary one first
        std::vector<WindowInfo> windows; // front to back; empty where the desktop does not tell
    };

    // All outlive the engine.
    CaptureEngine(MainLoop& loop, Workers& workers, const Displays& displays, Windows& windows);

    QCoro::Task<std::expected<Content, CaptureError>> shareableContent();

private:
    const Displays& m_displays;
    Windows& m_windows;
    Scope m_scope;
};

} // namespace Kovrel
