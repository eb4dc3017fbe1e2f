#pragma once

#include "platform/x11/X11Connection.h"

namespace Kovrel {

// Bytes on their way to another program through a property of its window: at once, or, when they are many, piece by
// piece as the program takes them (ICCCM's INCR). One thread.
class X11Transfer {
public:
    X11Transfer(X11Connection& connection, xcb_window_t window, xcb_atom_t property, xcb_atom_t type, QByteArray bytes);

    // Puts all of it, or announces the pieces; false where it is over with that. From then on the connection is told of
    // the window's properties and its end.
    bool begin();

    bool isTo(xcb_window_t window) const { return window == m_window; }

    bool isFor(const xcb_property_notify_event_t& event) const;
    // The last piece was taken. False once the end was told.
    bool putNext();

private:
    void put(xcb_atom_t type, uint8_t format, uint32_t count, const void* data);

    X11Connection& m_connection;
    xcb_window_t m_window;
    xcb_atom_t m_property;
    xcb_atom_t m_type;
    QByteArray m_bytes;
    qsizetype m_done = 0;
};

} // namespace Kovrel
