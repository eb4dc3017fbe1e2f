#pragma once

#include "platform/KeyGrabs.h"
#include "platform/x11/keys/X11Keyboard.h"

#include <memory>

namespace Kovrel {

// Holds the whole keyboard for somebody who listens to all keys. Main thread.
class X11KeyListening {
public:
    using Listener = std::function<void(KeyGrabs::Typed)>;

    // Both outlive it, but what `listen` hands out may outlive all three.
    X11KeyListening(X11Connection& connection, const X11Keyboard& keyboard)
        : m_connection(connection), m_keyboard(keyboard)
    {
    }

    // The status is that of the server's answer, 1 where another program holds the keyboard.
    std::expected<Subscription, KeyGrabs::Status> listen(Listener listener);

    bool isOn() const { return !m_holder.expired(); }

    // A press or a release, of the connection.
    void handle(const xcb_key_press_event_t& key);

private:
    class Holder;

    X11Connection& m_connection;
    const X11Keyboard& m_keyboard;
    std::shared_ptr<void> m_life = std::make_shared<char>();
    std::weak_ptr<Holder> m_holder; // somebody listens as long as it is there
};

} // namespace Kovrel
