#include "platform/x11/X11Transfer.h"

namespace Kovrel {

namespace {

constexpr qsizetype pieceSize = 128 << 10; // any server takes requests of this size

void watch(X11Connection& connection, xcb_window_t window)
{
    const uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection.handle(), window, XCB_CW_EVENT_MASK, &mask);
}

} // namespace

X11Transfer::X11Transfer(X11Connection& connection, xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                         QByteArray bytes)
    : m_connection(connection), m_window(window), m_property(property), m_type(type), m_bytes(std::move(bytes))
{
}

bool X11Transfer::begin()
{
    if (m_bytes.size() <= pieceSize) {
        put(m_type, 8, uint32_t(m_bytes.size()), m_bytes.constData());
        return false;
    }
    watch(m_connection, m_window);
    const auto atLeast = uint32_t(m_bytes.size());
    put(m_connection.atom("INCR"), 32, 1, &atLeast);
    return true;
}

bool X11Transfer::isFor(const xcb_property_notify_event_t& event) const
{
    return event.window == m_window && event.atom == m_property && event.state == XCB_PROPERTY_DELETE;
}

bool X11Transfer::putNext()
{
    const qsizetype size = qMin(pieceSize, m_bytes.size() - m_done);
    put(m_type, 8, uint32_t(size), m_bytes.constData() + m_done);
    m_done += size;
    return size > 0; // a piece without bytes is the end
}

void X11Transfer::put(xcb_atom_t type, uint8_t format, uint32_t count, const void* data)
{
    xcb_change_property(m_connection.handle(), XCB_PROP_MODE_REPLACE, m_window, m_property, type, format, count, data);
}

} // namespace Kovrel
