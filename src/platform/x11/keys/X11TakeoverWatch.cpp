#include "platform/x11/keys/X11TakeoverWatch.h"

#include <algorithm>

namespace Kovrel {

using namespace std::chrono_literals;

X11TakeoverWatch::X11TakeoverWatch(MainLoop& loop, X11Connection& connection, Handlers handlers)
    : m_loop(loop), m_connection(connection), m_handlers(std::move(handlers))
{
}

X11TakeoverWatch::~X11TakeoverWatch()
{
    m_loop.cancel(m_timer);
}

Subscription X11TakeoverWatch::watch(std::function<void()> onTakeover)
{
    Subscription watcher = m_watchers.add(std::move(onTakeover));
    m_loop.cancel(std::exchange(m_timer, 0));
    if (!m_connection.isAlive())
        return watcher;
    select(m_connection.root(), XCB_EVENT_MASK_FOCUS_CHANGE);
    followFocus();
    if (isTaken())
        suspect({1000ms});
    return watcher;
}

void X11TakeoverWatch::select(xcb_window_t window, uint32_t mask)
{
    xcb_change_window_attributes(m_connection.handle(), window, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(m_connection.handle());
}

// To the window that has the focus now.
void X11TakeoverWatch::followFocus()
{
    m_handlers.eventsMayWait();
    const auto answer = m_connection.reply(xcb_get_input_focus_reply, xcb_get_input_focus(m_connection.handle()));
    const bool isWindow =
        answer && answer->focus != XCB_INPUT_FOCUS_POINTER_ROOT && answer->focus != m_connection.root();
    listenTo(isWindow ? answer->focus : XCB_NONE);
}

void X11TakeoverWatch::stopListening()
{
    select(m_connection.root(), XCB_EVENT_MASK_NO_EVENT);
    listenTo(XCB_NONE);
}

void X11TakeoverWatch::listenTo(xcb_window_t focus)
{
    if (focus == m_focus)
        return;
    if (m_focus != XCB_NONE)
        select(m_focus, XCB_EVENT_MASK_NO_EVENT);
    m_focus = focus;
    if (m_focus != XCB_NONE)
        select(m_focus, XCB_EVENT_MASK_FOCUS_CHANGE);
}

void X11TakeoverWatch::handle(const xcb_generic_event_t& event)
{
    const int type = event.response_type & 0x7f;
    if ((type != XCB_FOCUS_IN && type != XCB_FOCUS_OUT) || isOurs(event))
        return;
    if (m_watchers.isEmpty()) {
        stopListening();
        return;
    }
    switch (reinterpret_cast<const xcb_focus_in_event_t&>(event).mode) {
    case XCB_NOTIFY_MODE_GRAB:
        if (m_handlers.ownKeys() == OwnKeys::up)
            suspect({250ms, 250ms});
        break;
    case XCB_NOTIFY_MODE_UNGRAB:
        break;
    default:
        followFocus();
    }
}

bool X11TakeoverWatch::isOurs(const xcb_generic_event_t& event) const
{
    return std::ranges::find(m_ownRequests, event.full_sequence) != m_ownRequests.end();
}

// The keyboard may be taken: looks after each of the waits.
void X11TakeoverWatch::suspect(Waits waits)
{
    if (m_timer == 0)
        m_timer = m_loop.after(waits.front(), [this, waits] {
            m_timer = 0;
            probe({waits.begin() + 1, waits.end()});
        });
}

void X11TakeoverWatch::probe(Waits waits)
{
    if (m_watchers.isEmpty() || !isTaken())
        return;
    if (waits.empty())
        m_watchers.notify();
    else
        suspect(std::move(waits));
}

bool X11TakeoverWatch::isTaken()
{
    if (m_handlers.ownKeys() == OwnKeys::holdKeyboard || !m_connection.isAlive())
        return false;
    m_handlers.eventsMayWait();
    xcb_connection_t* const connection = m_connection.handle();
    const auto request = xcb_grab_keyboard(connection, true, m_connection.root(), XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC,
                                           XCB_GRAB_MODE_ASYNC);
    m_ownRequests = {request.sequence, 0};
    const auto answer = m_connection.reply(xcb_grab_keyboard_reply, request);
    if (!answer || answer->status != XCB_GRAB_STATUS_SUCCESS)
        return answer != nullptr;
    m_ownRequests[1] = xcb_ungrab_keyboard(connection, XCB_CURRENT_TIME).sequence;
    m_connection.roundTrip(); // events after it are others' doing
    return false;
}

} // namespace Kovrel
