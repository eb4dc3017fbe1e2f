#pragma once

#include "platform/x11/X11ImageReader.h"

namespace Kovrel {

// Proves that a compositor shows what was drawn before. A compositor shows changes in the order in which they were
// made, but nobody tells when, and some are a few frames late without drawing anything meanwhile. So a window of one
// pixel changes its colour last of all: once that is seen on the screen, everything before it is, too.
class X11RepaintFence {
public:
    // The pixel is one of a display, in root pixels.
    X11RepaintFence(X11ImageReader& reader, QPoint pixel);
    ~X11RepaintFence();
    X11RepaintFence(const X11RepaintFence&) = delete;
    X11RepaintFence& operator=(const X11RepaintFence&) = delete;

    // Returns once the compositor has shown everything, the fence's own end among it. False when that could not be
    // seen within four seconds, as where something covers the pixel.
    bool pass();

private:
    std::optional<QRgb> seen();
    void paint(QRgb colour);
    bool waitUntilSeen(bool isSeen);

    X11ImageReader& m_reader;
    xcb_connection_t* m_handle;
    QPoint m_pixel;
    xcb_window_t m_window = XCB_NONE;
    QRgb m_ground = 0; // what the pixel shows without the fence
};

} // namespace Kovrel
