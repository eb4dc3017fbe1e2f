#pragma once

#include "platform/DesktopStills.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/windows/X11WindowList.h"

#include <QRect>

#include <expected>
#include <vector>

namespace Kovrel {

// Lets the user point at a window: the pointer becomes a crosshair, the window under it gets an outline, a click
// takes it. Keyboard and pointer belong to the picker meanwhile.
class X11WindowPicker {
public:
    // Cancelled by Escape or the right button; refused also without a server.
    using Failure = DesktopStills::PickFailure;

    explicit X11WindowPicker(X11Connection& connection);
    ~X11WindowPicker();
    X11WindowPicker(const X11WindowPicker&) = delete;
    X11WindowPicker& operator=(const X11WindowPicker&) = delete;

    // Blocks until the user has decided.
    std::expected<xcb_window_t, Failure> pick();

private:
    bool grabInput();
    bool grabPointer(xcb_cursor_t cursor);
    bool grabKeyboard();
    void createOutline();
    const WindowInfo* windowAt(QPoint rootPixel) const;
    void outline(QPoint rootPixel);

    X11Connection& m_connection;
    std::vector<X11WindowList::Entry> m_windows; // front to back
    std::vector<xcb_window_t> m_edges;           // top, bottom, left, right of the outline
    const WindowInfo* m_outlined = nullptr;
};

} // namespace Kovrel
