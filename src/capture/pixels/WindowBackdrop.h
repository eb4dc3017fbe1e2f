#pragma once

#include "model/CaptureSubject.h"
#include "model/WindowBackdropStyle.h"
#include "platform/Reply.h"

#include <QImage>

#include <optional>

namespace Kovrel {

// What the background composition of a window capture returns.
struct ComposedCapture {
    QImage image;
    std::optional<CaptureSubject> subject;
};

// Sets a captured window on its backdrop. Main thread; the work is done elsewhere.
class WindowBackdrop {
public:
    virtual ~WindowBackdrop() = default;

    // The desktop picture of a display at a size, for the style "wallpaper".
    virtual void captureWallpaper(quint32 displayID, int maxPixelSize, Reply<std::optional<QImage>> reply) = 0;
    virtual void compose(QImage window, WindowBackdropStyle style, std::optional<QImage> wallpaper,
                         Reply<ComposedCapture> reply) = 0;
};

} // namespace Kovrel
