#include "platform/x11/X11DamageWatch.h"

#include <QDeadlineTimer>

#include <xcb/damage.h>

namespace Kovrel {

using namespace std::chrono_literals;

X11DamageWatch::X11DamageWatch(X11Connection& connection, xcb_window_t window) : m_connection(connection)
{
    if (!m_connection.has(xcb_damage_id))
        return;
    m_damage = xcb_generate_id(m_connection.handle());
    xcb_damage_create(m_connection.handle(), m_damage, window, XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    m_connection.roundTrip();
}

X11DamageWatch::~X11DamageWatch()
{
    if (m_damage == XCB_NONE)
        return;
    xcb_damage_destroy(m_connection.handle(), m_damage);
    m_connection.roundTrip();
    while (m_connection.nextEvent(0ms)) {
    }
}

void X11DamageWatch::waitUntilQuiet(std::chrono::milliseconds beginning) const
{
    const QDeadlineTimer deadline(patience);
    auto span = beginning;
    while (!deadline.hasExpired()) {
        const std::chrono::milliseconds left(deadline.remainingTime());
        if (!m_connection.nextEvent(std::min(span, left)))
            return;
        span = frame;
    }
}

} // namespace Kovrel
