#pragma once

#include "platform/x11/X11Connection.h"

#include <QRect>
#include <QString>

#include <vector>

namespace Kovrel {

// A monitor as the server knows it.
struct X11Monitor {
    xcb_atom_t atom = XCB_ATOM_NONE; // of the name, unique among the monitors
    QString name;
    QRect pixels; // on the root window
    bool isPrimary = false;

    // The primary one first, which is the server's first where none is flagged; of mirrored ones only one.
    static std::vector<X11Monitor> all(X11Connection& connection);
};

} // namespace Kovrel
