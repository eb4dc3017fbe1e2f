#pragma once

#include "capture/SelectionOverlay.h"
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
    // The window, or a tiled group as one picture, taken in the process. No value when the desktop refuses.
    virtual void grabWindows(std::vector<quint32> ids, Reply<std::optional<QImage>> reply) = 0;
};

} // namespace Kovrel
