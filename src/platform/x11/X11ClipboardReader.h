#pragma once

#include "platform/Clipboard.h"
#include "platform/x11/X11Connection.h"

#include <QDeadlineTimer>

namespace Kovrel {

// Reads what another program has on the clipboard, on a connection of its own, and waits for that program meanwhile:
// any thread but the main one.
class X11ClipboardReader {
public:
    struct Limits {
        std::chrono::milliseconds patience; // for all of it
        qsizetype bytes;
    };

    // An empty name stands for the environment's DISPLAY.
    X11ClipboardReader(const QByteArray& displayName, Limits limits);

    // The content in the first of the types that there is. Nothing where there is none, or the limits do not do.
    std::optional<ClipboardContent> read(const QStringList& mimeTypes);

private:
    using Bytes = std::optional<QByteArray>;

    Bytes fetch(const QByteArray& target);
    Bytes fetchPieces();
    X11Reply<xcb_get_property_reply_t> take();
    X11Reply<xcb_generic_event_t> awaitEvent(uint8_t type);

    Limits m_limits;
    QDeadlineTimer m_deadline;
    X11Connection m_connection;
    xcb_window_t m_window = XCB_NONE;
    xcb_atom_t m_property = XCB_NONE; // of the window, through which the bytes come
};

} // namespace Kovrel
