#pragma once

#include <QByteArray>

#include <chrono>
#include <cstdlib>
#include <map>
#include <memory>

#include <xcb/xcb.h>

namespace Kovrel {

struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};

// What the server answered; null when it refused or is gone.
template <class T>
using X11Reply = std::unique_ptr<T, FreeMemory>;

// One connection to the X server, used by one thread at a time. Without a server, and after it died, the connection
// is not alive: requests do nothing and every reply is null.
class X11Connection {
public:
    // An empty name stands for the environment's DISPLAY.
    explicit X11Connection(const QByteArray& displayName = {});
    ~X11Connection();
    X11Connection(const X11Connection&) = delete;
    X11Connection& operator=(const X11Connection&) = delete;

    bool isAlive() const;
    // Whether both ends share this computer's memory.
    bool isLocal() const;

    xcb_connection_t* handle() const { return m_connection; }

    xcb_window_t root() const { return m_root; }

    // Only while the connection is alive.
    const xcb_screen_t& screen() const { return *m_screen; }

    int screenNumber() const { return m_screenNumber; }

    // Whether the screen's pixels are 32-bit words of 8-bit channels in this computer's byte order.
    bool hasPlainPixels() const;
    // An extension that was told by the server, with its version agreed upon. Requests of others end the connection.
    bool has(xcb_extension_t& extension) const;
    // The number of an extension's first event.
    uint8_t firstEvent(xcb_extension_t& extension) const;

    // Whether windows are composed with their alpha before they reach the screen.
    bool hasCompositor();

    xcb_atom_t atom(const QByteArray& name);
    QByteArray atomName(xcb_atom_t atom) const;

    template <class T, class Cookie>
    X11Reply<T> reply(T* (*take)(xcb_connection_t*, Cookie, xcb_generic_error_t**), Cookie cookie) const
    {
        xcb_generic_error_t* error = nullptr;
        X11Reply<T> answer(take(m_connection, cookie, &error));
        std::free(error);
        return answer;
    }

    // While one of these lives nobody else's requests are handled; they may be nested.
    class ServerHold {
    public:
        explicit ServerHold(X11Connection& connection) : m_connection(connection) { m_connection.holdServer(); }

        ~ServerHold() { m_connection.letServerGo(); }

        ServerHold(const ServerHold&) = delete;
        ServerHold& operator=(const ServerHold&) = delete;

    private:
        X11Connection& m_connection;
    };

    // Waits for a request sent with one of the `_checked` functions.
    bool succeeded(xcb_void_cookie_t cookie) const;
    // The same, with the server's error code; 0 is none.
    uint8_t errorOf(xcb_void_cookie_t cookie) const;
    // Returns once the server has handled everything sent before.
    void roundTrip() const;
    // The next event, or null when none came in time.
    X11Reply<xcb_generic_event_t> nextEvent(std::chrono::milliseconds patience) const;

private:
    void agreeOnVersions();
    void holdServer();
    void letServerGo();

    xcb_connection_t* m_connection;
    int m_screenNumber = 0;
    const xcb_screen_t* m_screen = nullptr;
    xcb_window_t m_root = XCB_NONE;
    int m_holds = 0;
    std::map<QByteArray, xcb_atom_t> m_atoms;
};

} // namespace Kovrel
