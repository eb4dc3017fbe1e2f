#pragma once

#include "model/KeyCombo.h"
#include "platform/x11/X11Connection.h"

#include <vector>

#include <xkbcommon/xkbcommon.h>

namespace Kovrel {

// The keyboard's layout, as the server holds it: which keys and modifier bits a combination means. Main thread.
class X11Keyboard {
public:
    // Agrees with the server on the keyboard extension; `read` has to follow.
    explicit X11Keyboard(X11Connection& connection);

    // Reads the layout again. Costs a few round trips. Answers whether it is another one than before: servers announce
    // a new layout also each time the user goes over to another keyboard.
    bool read();

    // The keys that bear the combination's symbol, in the current group before the others and on a low level before a
    // high one; where none does, the key that lies in its place. Modifiers that a level needs don't count: combinations
    // name theirs.
    std::vector<xcb_keycode_t> keysFor(quint32 virtualKeyCode) const;

    // What a combination calls the key that was pressed: the first virtual key that `keysFor` finds there, letters and
    // digits before others. None for a modifier.
    std::optional<quint32> virtualKeyCode(xcb_keycode_t key) const;

    // The modifier bits that a key sets while it is down.
    uint8_t modifierBits(xcb_keycode_t key) const { return m_keyModifiers[key]; }

    // KeyCombo's modifiers as modifier bits of the server, and the other way.
    uint8_t mask(quint32 modifiers) const;
    quint32 modifiers(uint8_t mask) const;

    // Every combination of the lock keys that this keyboard has: Caps Lock, Num Lock, Scroll Lock.
    const std::vector<uint8_t>& lockStates() const { return m_lockStates; }

    // The layout among those that the user switches between. Answers whether it is another one than before.
    bool setGroup(xkb_layout_index_t group);

    // The number of the extension's only event.
    uint8_t firstEvent() const { return m_firstEvent; }

private:
    struct FreeKeymap {
        void operator()(xkb_keymap* keymap) const { xkb_keymap_unref(keymap); }

        void operator()(xkb_context* context) const { xkb_context_unref(context); }
    };

    template <class Visitor>
    void forEachSymbol(xkb_keycode_t key, Visitor goesOn) const;
    std::vector<xcb_keycode_t> keysBearing(xkb_keysym_t symbol) const;
    std::optional<std::pair<int, int>> rank(xkb_keycode_t key, xkb_keysym_t symbol) const;
    uint8_t modifierOf(const std::vector<uint8_t>& keyModifiers, std::initializer_list<xkb_keysym_t> symbols) const;
    void readModifiers();
    size_t fingerprint() const;

    X11Connection& m_connection;
    std::unique_ptr<xkb_context, FreeKeymap> m_context;
    std::unique_ptr<xkb_keymap, FreeKeymap> m_keymap; // null: no keyboard
    size_t m_fingerprint = 0;
    xkb_layout_index_t m_group = 0;
    uint8_t m_firstEvent = 0;
    uint8_t m_alt = XCB_MOD_MASK_1;
    uint8_t m_super = XCB_MOD_MASK_4;
    std::vector<uint8_t> m_lockStates{0};
    std::vector<uint8_t> m_keyModifiers = std::vector<uint8_t>(256); // the bits that each key sets
};

} // namespace Kovrel
