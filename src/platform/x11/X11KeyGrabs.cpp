#include "platform/x11/X11KeyGrabs.h"

#include <X11/keysym.h>
#include <xcb/xcb_keysyms.h>

#include <algorithm>
#include <array>

namespace Kovrel {

namespace {

// Caps Lock and, as every usual keyboard has it, Num Lock.
constexpr std::array<uint16_t, 4> lockStates{0, XCB_MOD_MASK_LOCK, XCB_MOD_MASK_2, XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2};

// The keys that end a session or a countdown: the same on every keyboard layout.
struct SessionKey {
    quint32 keyCode;
    xcb_keysym_t keysym;
};

constexpr std::array sessionKeys{SessionKey{36, XK_Return}, SessionKey{49, XK_space}, SessionKey{53, XK_Escape},
                                 SessionKey{76, XK_KP_Enter}};

uint16_t modifierMask(quint32 modifiers)
{
    return uint16_t((modifiers & KeyCombo::shift ? XCB_MOD_MASK_SHIFT : 0) |
                    (modifiers & KeyCombo::control ? XCB_MOD_MASK_CONTROL : 0) |
                    (modifiers & KeyCombo::option ? XCB_MOD_MASK_1 : 0) |
                    (modifiers & KeyCombo::command ? XCB_MOD_MASK_4 : 0));
}

std::vector<xcb_keycode_t> keysFor(xcb_connection_t* connection, quint32 keyCode)
{
    const auto entry = std::ranges::find(sessionKeys, keyCode, &SessionKey::keyCode);
    if (entry == sessionKeys.end())
        return {};
    const std::unique_ptr<xcb_key_symbols_t, decltype(&xcb_key_symbols_free)> symbols(xcb_key_symbols_alloc(connection),
                                                                                      xcb_key_symbols_free);
    const std::unique_ptr<xcb_keycode_t, FreeMemory> codes(xcb_key_symbols_get_keycode(symbols.get(), entry->keysym));
    std::vector<xcb_keycode_t> keys;
    for (const xcb_keycode_t* code = codes.get(); code && *code != XCB_NO_SYMBOL; ++code)
        keys.push_back(*code);
    return keys;
}

} // namespace

X11KeyGrabs::X11KeyGrabs(std::unique_ptr<X11Connection> connection) : m_connection(std::move(connection))
{
    if (!m_connection->isAlive())
        return;
    m_notifier =
        std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_connection->handle()), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { handleEvents(); });
}

std::expected<KeyGrabs::GrabID, KeyGrabs::Status> X11KeyGrabs::grab(KeyCombo combo, Handlers handlers, Modifiers)
{
    if (!m_connection->isAlive())
        return std::unexpected(0);
    Grab grab{keysFor(m_connection->handle(), combo.keyCode), modifierMask(combo.modifiers), std::move(handlers)};
    std::erase_if(grab.keys, [&](xcb_keycode_t key) { return !grabKey(key, grab.modifiers); });
    if (grab.keys.empty())
        return std::unexpected(XCB_ACCESS);
    m_grabs.emplace(++m_lastGrab, std::move(grab));
    return m_lastGrab;
}

bool X11KeyGrabs::grabKey(xcb_keycode_t key, uint16_t modifiers)
{
    bool isGrabbed = true;
    for (const uint16_t locks : lockStates)
        isGrabbed &= m_connection->succeeded(xcb_grab_key_checked(m_connection->handle(), 0, m_connection->root(),
                                                                  uint16_t(modifiers | locks), key, XCB_GRAB_MODE_ASYNC,
                                                                  XCB_GRAB_MODE_ASYNC));
    if (!isGrabbed)
        ungrabKey(key, modifiers);
    return isGrabbed;
}

void X11KeyGrabs::ungrabKey(xcb_keycode_t key, uint16_t modifiers)
{
    for (const uint16_t locks : lockStates)
        xcb_ungrab_key(m_connection->handle(), key, m_connection->root(), uint16_t(modifiers | locks));
    xcb_flush(m_connection->handle());
}

void X11KeyGrabs::release(GrabID grab)
{
    const auto released = m_grabs.extract(grab);
    if (released.empty() || !m_connection->isAlive())
        return;
    for (const xcb_keycode_t key : released.mapped().keys)
        ungrabKey(key, released.mapped().modifiers);
}

void X11KeyGrabs::handleEvents()
{
    if (!m_connection->isAlive()) {
        m_notifier->setEnabled(false);
        return;
    }
    while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection->handle())})
        if ((event->response_type & 0x7f) == XCB_KEY_PRESS)
            pressed(reinterpret_cast<const xcb_key_press_event_t&>(*event));
}

void X11KeyGrabs::pressed(const xcb_key_press_event_t& event)
{
    const uint16_t modifiers =
        event.state & (XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1 | XCB_MOD_MASK_4);
    for (const auto& [id, grab] : m_grabs) {
        if (grab.modifiers != modifiers || std::ranges::find(grab.keys, event.detail) == grab.keys.end())
            continue;
        const auto onPress = grab.handlers.onPress; // it may release the grab
        onPress({});
        return;
    }
}

} // namespace Kovrel
