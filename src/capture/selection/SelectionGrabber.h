#pragma once

#include "capture/selection/SelectionOverlay.h"
#include "platform/Reply.h"

#include <optional>

namespace Kovrel {

// Cuts what was selected out of what the overlay showed. Main thread.
class SelectionGrabber {
public:
    virtual ~SelectionGrabber() = default;

    virtual void prewarm() = 0;
    // No value when the frozen images do not hold the rectangle.
    virtual void grab(QRect rootPixels, FrozenScreens frozen, Reply<std::optional<QImage>> reply) = 0;
    // The window, or a tiled group as one picture with its members in their places, taken in the process. A menu or
    // a tip that is gone by now is cut out of the frozen images. No value when the window is gone or refused.
    virtual void grabWindows(std::vector<WindowInfo> windows, FrozenScreens frozen,
                             Reply<std::optional<QImage>> reply) = 0;
};

} // namespace Kovrel
