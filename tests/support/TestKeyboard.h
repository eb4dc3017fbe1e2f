#pragma once

#include <QByteArray>
#include <QStringList>

#include <initializer_list>
#include <vector>

#include <xcb/xcb.h>

namespace Kovrel::Testing {

// The user's fingers on a virtual display, and another program that wants keys of its own. Keys are X key codes, which
// name a place on the keyboard.
class TestKeyboard {
public:
    enum Key : xcb_keycode_t {
        escape = 9,
        digit3 = 12, // in the row above the letters
        digit4 = 13,
        digit5 = 14,
        placeOfC = 54, // on an ANSI keyboard
        placeOfI = 31,
        placeOfP = 33,
        placeOfW = 25,
        placeOfS = 39,
        control = 37,
        shift = 50,
        alt = 64,
        space = 65,
        capsLock = 66,
        numLock = 77,
        keypad4 = 83,
        enter = 36,
        print = 107,
        up = 111,
        left = 113,
        right = 114,
        down = 116,
        super = 133,
    };

    explicit TestKeyboard(const QByteArray& display);
    ~TestKeyboard();
    TestKeyboard(const TestKeyboard&) = delete;
    TestKeyboard& operator=(const TestKeyboard&) = delete;

    // Each returns once the server has handled it.
    void press(xcb_keycode_t key) { send(XCB_KEY_PRESS, key); }

    void release(xcb_keycode_t key) { send(XCB_KEY_RELEASE, key); }

    // Presses the keys one after the other and releases them the other way round.
    void type(const std::vector<xcb_keycode_t>& keys);

    // With the options of setxkbmap.
    void setLayout(const QStringList& options);
    void setGroup(int group);

    // The other program. It holds the whole keyboard as a menu or a screen lock does.
    bool holdKeyboard();
    void letKeyboardGo();
    // Whether it got the combination for itself alone.
    bool grab(xcb_keycode_t key, uint16_t modifiers);
    void ungrab(xcb_keycode_t key, uint16_t modifiers);

private:
    void send(uint8_t type, xcb_keycode_t key);
    void roundTrip();

    QByteArray m_display;
    xcb_connection_t* m_connection;
    xcb_window_t m_root;
};

} // namespace Kovrel::Testing
