#pragma once

#include "platform/ScreenPixels.h"
#include "platform/x11/X11ImageReader.h"

namespace Kovrel {

// The pixels of the root window, taken on the calling thread. ScreenPixels says what the operations answer.
class X11Screen {
public:
    explicit X11Screen(X11ImageReader& reader) : m_reader(reader) {}

    GrabbedImage grab(QRect rootPixels, ScreenPixels::PointerOption pointer);

    // Returns once the screen shows what the server has handled before. False when there is no server.
    //
    // Without a compositor an unmapped window is gone from the root window at once, but what it covered is only
    // background until its owners have heard of it and painted again; a compositor paints the whole picture anew, a
    // frame or more later. Neither tells when it is done. A compositor shows a fence of ours last; that others have
    // painted is seen by nothing being drawn for a frame.
    bool waitUntilRepainted();

private:
    void passFence();
    std::optional<QImage> readRoot(QRect rootPixels);
    void drawPointer(QImage& image, QPoint topLeft);

    X11ImageReader& m_reader;
};

} // namespace Kovrel
