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

QRegion X11DamageWatch::drawnIn(const xcb_generic_event_t& event) const
{
    if ((event.response_type & 0x7f) != m_connection.firstEvent(xcb_damage_id) + XCB_DAMAGE_NOTIFY)
        return {};
    const auto& notice = reinterpret_cast<const xcb_damage_notify_event_t&>(event);
    return QRect(notice.area.x, notice.area.y, notice.area.width, notice.area.height);
}

void X11DamageWatch::waitUntilDrawn(const QRect& area) const
{
    const QDeadlineTimer deadline(3 * patience);
    QRegion missing(area);
    while (m_damage != XCB_NONE && !missing.isEmpty()) {
        const auto event = m_connection.nextEvent(std::chrono::milliseconds(deadline.remainingTime()));
        if (!event)
            return;
        missing -= drawnIn(*event);
    }
    waitUntilQuiet(m_damage == XCB_NONE ? patience : frame);
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
