#pragma once

#include "platform/MainLoop.h"
#include "platform/Observers.h"
#include "platform/x11/X11Connection.h"

#include <array>
#include <vector>

namespace Kovrel {

// Notices that another program has taken the whole keyboard and keeps it. The server tells nobody of that but the
// window that has the focus, so this listens there; then it tries to take the keyboard itself, which it gives back at
// once, and believes what is still so half a second later: a window manager's shortcut holds the keyboard shorter.
// Main thread; a timer runs only while there is a suspicion.
class X11TakeoverWatch {
public:
    // Whether keys that we grabbed are down, and whether that has given the keyboard to us.
    enum class OwnKeys { up, down, holdKeyboard };

    struct Handlers {
        std::function<OwnKeys()> ownKeys;
        std::function<void()> eventsMayWait; // in the connection's queue, not on its socket
    };

    X11TakeoverWatch(MainLoop& loop, X11Connection& connection, Handlers handlers);
    ~X11TakeoverWatch();
    X11TakeoverWatch(const X11TakeoverWatch&) = delete;
    X11TakeoverWatch& operator=(const X11TakeoverWatch&) = delete;

    // Where the keyboard is held already, as by a menu, its holder has a second to let go. Costs two round trips. After
    // the last watch has ended the next event ends the listening.
    Subscription watch(std::function<void()> onTakeover);

    // An event of the connection.
    void handle(const xcb_generic_event_t& event);

private:
    using Waits = std::vector<MainLoop::Milliseconds>;

    void select(xcb_window_t window, uint32_t mask);
    void followFocus();
    void listenTo(xcb_window_t focus);
    void stopListening();
    void suspect(Waits waits);
    void probe(Waits waits);
    bool isTaken();
    bool isOurs(const xcb_generic_event_t& event) const;

    MainLoop& m_loop;
    X11Connection& m_connection;
    Handlers m_handlers;
    Observers<> m_watchers;
    xcb_window_t m_focus = XCB_NONE;
    std::array<uint32_t, 2> m_ownRequests{}; // of the last probe: the events they cause are no news
    MainLoop::TimerID m_timer = 0;
};

} // namespace Kovrel
