#pragma once

#include "platform/KeyGrabs.h"
#include "platform/x11/X11Connection.h"

#include <QSocketNotifier>

#include <map>
#include <memory>
#include <vector>

namespace Kovrel {

// Passive key grabs on the root window, with every state of the lock keys. Main thread; asking for one costs a round
// trip to a local server.
class X11KeyGrabs : public KeyGrabs {
public:
    // The connection belongs to this object alone: it takes its events.
    explicit X11KeyGrabs(std::unique_ptr<X11Connection> connection);

    std::expected<GrabID, Status> grab(KeyCombo combo, Handlers handlers,
                                       Modifiers modifiers = Modifiers::exact) override;
    void release(GrabID grab) override;

    void onLayoutChange(std::function<void()>) override {}

    void watchForTakeover(std::function<void()>) override {}

private:
    struct Grab {
        std::vector<xcb_keycode_t> keys;
        uint16_t modifiers = 0;
        Handlers handlers;
    };

    bool grabKey(xcb_keycode_t key, uint16_t modifiers);
    void ungrabKey(xcb_keycode_t key, uint16_t modifiers);
    void handleEvents();
    void pressed(const xcb_key_press_event_t& event);

    std::unique_ptr<X11Connection> m_connection;
    std::map<GrabID, Grab> m_grabs;
    GrabID m_lastGrab = 0;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace Kovrel
