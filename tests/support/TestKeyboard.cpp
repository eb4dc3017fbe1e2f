#include "tests/support/TestKeyboard.h"

#include "platform/x11/keys/X11Xkb.h"

#include <QProcess>

#include <chrono>
#include <ranges>
#include <stdexcept>
#include <thread>

#include <xcb/xtest.h>

namespace Kovrel::Testing {

TestKeyboard::TestKeyboard(const QByteArray& display)
    : m_display(display),
      m_connection(xcb_connect(display.constData(), nullptr)),
      m_root(xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root)
{
    free(xcb_xkb_use_extension_reply(m_connection, xcb_xkb_use_extension(m_connection, 1, 0), nullptr));
}

TestKeyboard::~TestKeyboard()
{
    xcb_disconnect(m_connection);
}

void TestKeyboard::roundTrip()
{
    free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

// Nobody does two things within one millisecond, the finest time the server tells: of keys and pointer, which come over
// different connections, nobody could say which was first.
void TestKeyboard::send(uint8_t type, xcb_keycode_t key)
{
    constexpr std::chrono::milliseconds pace{2};
    std::this_thread::sleep_for(pace);
    xcb_test_fake_input(m_connection, type, key, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    roundTrip();
    std::this_thread::sleep_for(pace);
}

void TestKeyboard::type(const std::vector<xcb_keycode_t>& keys)
{
    for (const xcb_keycode_t key : keys)
        press(key);
    for (const xcb_keycode_t key : std::views::reverse(keys))
        release(key);
}

void TestKeyboard::setLayout(const QStringList& options)
{
    QProcess program;
    program.start("setxkbmap", QStringList{"-display", QString::fromLatin1(m_display)} + options);
    if (!program.waitForFinished(20000) || program.exitCode() != 0)
        throw std::runtime_error("setxkbmap failed: " + program.readAllStandardError().toStdString());
}

void TestKeyboard::setGroup(int group)
{
    xcb_xkb_latch_lock_state(m_connection, XCB_XKB_ID_USE_CORE_KBD, 0, 0, true, uint8_t(group), 0, false, 0);
    roundTrip();
}

bool TestKeyboard::holdKeyboard()
{
    auto* reply = xcb_grab_keyboard_reply(
        m_connection,
        xcb_grab_keyboard(m_connection, true, m_root, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
        nullptr);
    const bool isHeld = reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
    free(reply);
    return isHeld;
}

void TestKeyboard::letKeyboardGo()
{
    xcb_ungrab_keyboard(m_connection, XCB_CURRENT_TIME);
    roundTrip();
}

bool TestKeyboard::grab(xcb_keycode_t key, uint16_t modifiers)
{
    auto* error = xcb_request_check(m_connection, xcb_grab_key_checked(m_connection, true, m_root, modifiers, key,
                                                                       XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    const bool isGrabbed = !error;
    free(error);
    return isGrabbed;
}

void TestKeyboard::ungrab(xcb_keycode_t key, uint16_t modifiers)
{
    xcb_ungrab_key(m_connection, key, m_root, modifiers);
    roundTrip();
}

} // namespace Kovrel::Testing
