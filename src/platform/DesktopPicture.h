#pragma once

#include "platform/Reply.h"

#include <QImage>

#include <optional>

namespace Kovrel {

// The picture behind all windows.
class DesktopPicture {
public:
    virtual ~DesktopPicture() = default;

    // The part that lies on one display, scaled by `maxPixelSize` / its longer side in points, at most by 3.
    // No value when there is none or the display is gone.
    virtual void grab(quint32 displayID, int maxPixelSize, Reply<std::optional<QImage>> reply) = 0;
};

} // namespace Kovrel
