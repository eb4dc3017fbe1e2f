#include "platform/x11/overlay/X11OverlaySurfaces.h"

#include "platform/Guarded.h"
#include "platform/ReplyFromWorker.h"

namespace Kovrel {

namespace {

// Over one window in a session. A screen lock that wants to be over everything wins.
constexpr int mostRaises = 10;

// The wheel comes as a press of one button and its release for each step.
std::optional<OverlayPointer> pressOf(const xcb_button_press_event_t& event, OverlayPointer pointer, bool isPress)
{
    pointer.kind = isPress ? OverlayPointer::Kind::press : OverlayPointer::Kind::release;
    switch (event.detail) {
    case XCB_BUTTON_INDEX_1:
        pointer.button = Qt::LeftButton;
        return pointer;
    case XCB_BUTTON_INDEX_3:
        pointer.button = Qt::RightButton;
        return pointer;
    case XCB_BUTTON_INDEX_4:
    case XCB_BUTTON_INDEX_5:
        if (!isPress)
            return {};
        pointer.kind = OverlayPointer::Kind::scroll;
        pointer.scrolled = event.detail == XCB_BUTTON_INDEX_4 ? 1 : -1;
        return pointer;
    default:
        return {};
    }
}

std::optional<OverlayPointer> pointerOf(const xcb_generic_event_t& event)
{
    // Motions have the layout of button events.
    const auto& button = reinterpret_cast<const xcb_button_press_event_t&>(event);
    const OverlayPointer pointer{.rootPixel = {button.root_x, button.root_y},
                                 .isShiftDown = (button.state & XCB_MOD_MASK_SHIFT) != 0,
                                 .time = button.time,
                                 .isAltDown = (button.state & XCB_MOD_MASK_1) != 0};
    const int type = event.response_type & 0x7f;
    if (type == XCB_MOTION_NOTIFY)
        return pointer;
    if (type != XCB_BUTTON_PRESS && type != XCB_BUTTON_RELEASE)
        return {};
    return pressOf(button, pointer, type == XCB_BUTTON_PRESS);
}

} // namespace

struct X11OverlaySurfaces::Server {
    std::shared_ptr<X11Connection> connection = std::make_shared<X11Connection>();
    std::shared_ptr<X11ImageReader> reader = std::make_shared<X11ImageReader>(connection);
    X11Visuals visuals = X11Visuals::read(*connection);
    xcb_atom_t currentDesktop = connection->atom("_NET_CURRENT_DESKTOP");
};

X11OverlaySurfaces::X11OverlaySurfaces(MainLoop& loop, Workers& workers, const Displays& displays)
    : m_loop(loop), m_workers(workers), m_displays(displays)
{
}

X11OverlaySurfaces::~X11OverlaySurfaces()
{
    X11OverlaySurfaces::close();
}

void X11OverlaySurfaces::prewarm()
{
    if (m_server)
        return;
    m_server = std::make_shared<Server>();
    m_server->reader->releaseWhenIdle(m_loop);
}

void X11OverlaySurfaces::expectOpening()
{
    prewarm();
    if (m_overlay)
        return;
    std::vector<QRect> displays;
    for (const Display& display : m_displays.all())
        displays.push_back(display.pixelRect);
    m_workers.submit(Lane::capture, [server = m_server, displays = std::move(displays)] {
        server->reader->prepare(server->connection->root(), displays);
    });
}

void X11OverlaySurfaces::open(Opening opening, Handlers handlers, Reply<Outcome> reply)
{
    close();
    prewarm();
    m_handlers = std::move(handlers);
    m_raises.clear();
    std::vector<X11Overlay::Surface> surfaces;
    for (const Display& display : m_displays.all())
        surfaces.push_back({display, opening.cursor(display)});
    auto overlay = std::make_shared<X11Overlay>(m_server->reader, m_server->visuals);
    const auto job = [overlay, surfaces = std::move(surfaces), ground = opening.ground, shade = opening.shade] {
        return overlay->open(surfaces, ground, shade);
    };
    replyFromWorker<Outcome>(m_loop, m_workers, Lane::capture, Guarded::orReason(job),
                             [this, overlay, session = m_session, reply = std::move(reply)](Outcome opened) {
                                 if (session == m_session && opened) {
                                     m_overlay = overlay;
                                     listen();
                                 }
                                 reply(std::move(opened));
                             });
}

void X11OverlaySurfaces::takePointer(Reply<bool> reply)
{
    // The job has the connection meanwhile.
    m_notifier.reset();
    const auto job = [overlay = m_overlay, server = m_server] { return overlay && overlay->takePointer(); };
    replyFromWorker<bool>(m_loop, m_workers, Lane::capture, Guarded::orElse(job, false),
                          [this, session = m_session, reply = std::move(reply)](bool isTaken) {
                              if (session == m_session && m_overlay)
                                  listen();
                              reply(isTaken);
                          });
}

void X11OverlaySurfaces::close()
{
    ++m_session;
    m_looksForEvents = false;
    m_notifier.reset();
    m_handlers = {};
    m_overlay.reset();
}

// --- Events

void X11OverlaySurfaces::listen()
{
    m_notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_server->connection->handle()),
                                                   QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { handleEvents(); });
    lookForEvents();
}

// Events that come while something is sent, or along with a reply, wait in xcb's queue, of which the notifier does not
// know.
void X11OverlaySurfaces::lookForEvents()
{
    if (std::exchange(m_looksForEvents, true))
        return;
    m_loop.post([this, session = m_session] {
        if (session != m_session)
            return;
        m_looksForEvents = false;
        if (m_notifier)
            handleEvents();
    });
}

void X11OverlaySurfaces::handleEvents()
{
    X11Connection& x = *m_server->connection;
    const auto session = m_session;
    while (session == m_session) {
        const X11Reply<xcb_generic_event_t> event(xcb_poll_for_event(x.handle()));
        if (!event)
            break;
        handle(*event);
    }
    if (session == m_session && !x.isAlive() && m_handlers.onLost) {
        m_notifier->setEnabled(false);
        std::exchange(m_handlers.onLost, nullptr)();
    }
}

void X11OverlaySurfaces::handle(const xcb_generic_event_t& event)
{
    const Handlers handlers = m_handlers; // they may close the overlay
    if (const auto pointer = pointerOf(event)) {
        // One of an earlier session may still have been on its way.
        if (m_overlay->isOurs(reinterpret_cast<const xcb_button_press_event_t&>(event).event))
            handlers.onPointer(*pointer);
    } else if ((event.response_type & 0x7f) == XCB_PROPERTY_NOTIFY) {
        if (reinterpret_cast<const xcb_property_notify_event_t&>(event).atom == m_server->currentDesktop)
            handlers.onDesktopSwitch();
    } else if (const QRect exposed = m_overlay->exposedBy(event); !exposed.isEmpty()) {
        handlers.onExposed(exposed);
    } else if (const xcb_window_t window = m_overlay->coveredBy(event); window != XCB_NONE) {
        cameOver(window);
    }
}

void X11OverlaySurfaces::cameOver(xcb_window_t window)
{
    if (++m_raises[window] <= mostRaises)
        m_overlay->raise();
    else if (const auto onLost = std::exchange(m_handlers.onLost, nullptr))
        onLost();
}

// --- Drawing

template <class Request>
void X11OverlaySurfaces::send(Request request)
{
    if (!m_overlay)
        return;
    request(*m_overlay);
    lookForEvents();
}

void X11OverlaySurfaces::reveal(const QRect& rootPixels)
{
    send([&](X11Overlay& overlay) { overlay.reveal(rootPixels); });
}

void X11OverlaySurfaces::shade(const QRect& rootPixels)
{
    send([&](X11Overlay& overlay) { overlay.shade(rootPixels); });
}

void X11OverlaySurfaces::put(QPoint rootPixel, const QImage& pixels)
{
    send([&](X11Overlay& overlay) { overlay.put(rootPixel, pixels); });
}

void X11OverlaySurfaces::setCursor(std::function<OverlayCursor(const Display&)> cursor)
{
    send([&](X11Overlay& overlay) {
        for (const Display& display : m_displays.all())
            overlay.setCursor(display.id, cursor(display));
    });
}

void X11OverlaySurfaces::movePointer(QPoint rootPixel)
{
    send([&](X11Overlay& overlay) { overlay.movePointer(rootPixel); });
}

void X11OverlaySurfaces::raise()
{
    send([](X11Overlay& overlay) { overlay.raise(); });
}

} // namespace Kovrel
