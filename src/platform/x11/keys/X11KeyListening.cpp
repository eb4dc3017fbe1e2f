#include "platform/x11/keys/X11KeyListening.h"

namespace Kovrel {

// The keyboard is the listener's as long as this is there.
class X11KeyListening::Holder {
public:
    Holder(X11Connection& connection, std::weak_ptr<void> life, Listener told)
        : listener(std::move(told)), m_connection(connection), m_life(std::move(life))
    {
    }

    ~Holder()
    {
        if (m_life.expired())
            return;
        xcb_ungrab_keyboard(m_connection.handle(), XCB_CURRENT_TIME);
        xcb_flush(m_connection.handle());
    }

    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

    const Listener listener;

private:
    X11Connection& m_connection;
    std::weak_ptr<void> m_life;
};

std::expected<Subscription, KeyGrabs::Status> X11KeyListening::listen(Listener listener)
{
    const auto request = xcb_grab_keyboard(m_connection.handle(), 0, m_connection.root(), XCB_CURRENT_TIME,
                                           XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const auto answer = m_connection.reply(xcb_grab_keyboard_reply, request);
    if (!answer || answer->status != XCB_GRAB_STATUS_SUCCESS)
        return std::unexpected(answer ? answer->status : XCB_CONN_ERROR);
    auto holder = std::make_shared<Holder>(m_connection, m_life, std::move(listener));
    m_holder = holder;
    return Subscription(std::move(holder));
}

// A key's event tells which modifiers were down before it.
void X11KeyListening::handle(const xcb_key_press_event_t& key)
{
    const auto holder = m_holder.lock();
    if (!holder)
        return;
    const bool isPress = (key.response_type & 0x7f) == XCB_KEY_PRESS;
    const uint8_t own = m_keyboard.modifierBits(key.detail);
    const auto before = uint8_t(key.state);
    holder->listener({m_keyboard.modifiers(uint8_t(isPress ? before | own : before & ~own)),
                      isPress ? m_keyboard.virtualKeyCode(key.detail) : std::nullopt});
}

} // namespace Kovrel
