#pragma once

#include "platform/ScreenPixels.h"
#include "platform/x11/X11ImageReader.h"

namespace Kovrel {

// The pixels of the root window, taken on the calling thread. ScreenPixels says what the operations answer.
class X11Screen {
public:
    explicit X11Screen(std::shared_ptr<X11ImageReader> reader) : m_reader(std::move(reader)) {}

    GrabbedImage grab(QRect rootPixels, ScreenPixels::PointerOption pointer);

    // Returns once the screen shows what the server has handled before. False when there is no server.
    //
    // Without a compositor an unmapped window is gone from the root window at once, but what it covered is only
    // background until its owners have heard of it and painted again; a compositor paints the whole picture anew, a
    // frame or two later. Neither tells when it is done. What can be seen is that drawing has ended: nothing is
    // drawn for a frame, or for two where a compositor may not have begun yet.
    bool waitUntilRepainted();

private:
    std::optional<QImage> readRoot(QRect rootPixels);
    void drawPointer(QImage& image, QPoint topLeft);

    std::shared_ptr<X11ImageReader> m_reader;
};

} // namespace Kovrel
