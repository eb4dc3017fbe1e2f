#pragma once

#include "platform/x11/X11Connection.h"

#include <QString>

#include <vector>

namespace Kovrel {

// A window property that was asked for. Ask for several before taking the first: that is one round trip for all.
class X11Property {
public:
    X11Property(X11Connection& connection, xcb_window_t window, const char* name);
    ~X11Property();
    X11Property(const X11Property&) = delete;
    X11Property& operator=(const X11Property&) = delete;

    // The values; empty when the property is absent or of another form.
    std::vector<quint32> numbers();
    quint32 number(quint32 otherwise = 0);
    QByteArray bytes();
    QString text();

private:
    const xcb_get_property_reply_t* answer();

    X11Connection& m_connection;
    xcb_get_property_cookie_t m_cookie;
    bool m_isTaken = false;
    X11Reply<xcb_get_property_reply_t> m_answer;
};

} // namespace Kovrel
