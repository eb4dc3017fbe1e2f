#pragma once

#include "platform/Displays.h"
#include "platform/MainLoop.h"
#include "platform/OverlaySurfaces.h"
#include "platform/Workers.h"
#include "platform/x11/overlay/X11Overlay.h"

#include <QSocketNotifier>

#include <map>
#include <memory>

namespace Kovrel {

// The overlay on an X server. Opening, which waits for the server, is done on the capture lane; while it is open,
// drawing and events are the main thread's.
class X11OverlaySurfaces : public OverlaySurfaces {
public:
    // Displays outlive every reply.
    X11OverlaySurfaces(MainLoop& loop, Workers& workers, const Displays& displays);
    ~X11OverlaySurfaces() override;

    void prewarm() override;
    void expectOpening() override;
    void open(Opening opening, Handlers handlers, Reply<Outcome> reply) override;
    void takePointer(Reply<bool> reply) override;

    void reveal(const QRect& rootPixels) override;
    void shade(const QRect& rootPixels) override;
    void put(QPoint rootPixel, const QImage& pixels) override;
    void setCursor(std::function<OverlayCursor(const Display&)> cursor) override;
    void movePointer(QPoint rootPixel) override;
    void raise() override;
    void close() override;

private:
    struct Server; // the connection with what is read from it once

    template <class Request>
    void send(Request request);
    void listen();
    void lookForEvents();
    void handleEvents();
    void handle(const xcb_generic_event_t& event);
    void cameOver(xcb_window_t window);

    MainLoop& m_loop;
    Workers& m_workers;
    const Displays& m_displays;
    std::shared_ptr<Server> m_server;
    std::shared_ptr<X11Overlay> m_overlay; // null: closed, or not open yet
    Handlers m_handlers;
    quint64 m_session = 0;
    std::map<xcb_window_t, int> m_raises; // over each window that came above
    bool m_looksForEvents = false;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace Kovrel
