#pragma once

#include "platform/x11/X11Connection.h"

#include <QRegion>

#include <chrono>

namespace Kovrel {

// Notices each drawing in a window and those inside of it, for as long as it lives. Only one at a time on a
// connection, of which it uses up the events.
class X11DamageWatch {
public:
    // What a display needs at the usual rate to show what was drawn.
    static constexpr std::chrono::milliseconds frame{17};
    // What a screen that never rests, as with a video, is waited for.
    static constexpr std::chrono::milliseconds patience{100};

    X11DamageWatch(X11Connection& connection, xcb_window_t window);
    ~X11DamageWatch();
    X11DamageWatch(const X11DamageWatch&) = delete;
    X11DamageWatch& operator=(const X11DamageWatch&) = delete;

    // Returns once all of an area was drawn, and then nothing for a frame; or when the patience is over, which is
    // longer than for others, since it is a program that is waited for. In the watched window's pixels.
    void waitUntilDrawn(const QRect& area) const;
    // Returns after a frame without drawing, for whose beginning it waits as long as `beginning` says; in any case
    // when the patience is over.
    void waitUntilQuiet(std::chrono::milliseconds beginning) const;

private:
    QRegion drawnIn(const xcb_generic_event_t& event) const;

    X11Connection& m_connection;
    uint32_t m_damage = XCB_NONE;
};

} // namespace Kovrel
