#pragma once

#include <QtGlobal>

#include <span>

#include <xkbcommon/xkbcommon.h>

namespace Kovrel {

// A virtual key code of KeyCombo as X keyboards know it.
struct X11VirtualKey {
    quint32 code;
    xkb_keysym_t symbol;
    const char*
        place; // XKB's name of the key that lies where an ANSI keyboard has this one; null: not bound to a place
};

namespace X11VirtualKeys {

std::span<const X11VirtualKey> all();

} // namespace X11VirtualKeys

} // namespace Kovrel
