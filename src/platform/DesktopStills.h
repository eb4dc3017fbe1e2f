#pragma once

#include "platform/Displays.h"
#include "platform/ScreenPixels.h"

#include <expected>

namespace Kovrel {

// The pixels of a desktop for a process without an event loop: every call blocks. `Stills::open` makes the one
// that is there. One thread.
class DesktopStills {
public:
    enum class PickFailure {
        cancelled, // by the user
        refused,   // another program holds the keyboard or the pointer
    };

    virtual ~DesktopStills() = default;

    virtual DisplayList displays(const ScaleLookup& scaleOf) = 0;
    // As ScreenPixels and Windows answer.
    virtual GrabbedImage grab(QRect rootPixels, ScreenPixels::PointerOption pointer) = 0;
    virtual GrabbedImage grabWindow(quint32 windowID) = 0;
    // Lets the user point at a window.
    virtual std::expected<quint32, PickFailure> pickWindow() = 0;
};

} // namespace Kovrel
