#include "platform/x11/X11Displays.h"

#include "platform/x11/X11Monitor.h"
#include "platform/x11/X11WorkArea.h"

#include <algorithm>
#include <array>

#include <xcb/randr.h>

namespace Kovrel {

namespace {

// A frame keeps the native origin and divides only the size, with y turned up from the primary's lower edge. The
// upper left corner is the fixed one: it is the primary's height less the native distance from its top.
Display displayOf(const X11Monitor& monitor, const X11Monitor& primary, double scale, double primaryHeight)
{
    const QPoint fromPrimary = monitor.pixels.topLeft() - primary.pixels.topLeft();
    const Size size{monitor.pixels.width() / scale, monitor.pixels.height() / scale};
    return {.id = monitor.atom,
            .name = monitor.name,
            .frame = {double(fromPrimary.x()), primaryHeight - fromPrimary.y() - size.height, size.width, size.height},
            .visibleFrame = {},
            .pixelRect = monitor.pixels,
            .scale = scale,
            .isPrimary = monitor.isPrimary};
}

} // namespace

DisplayList X11Displays::read(X11Connection& x, const ScaleLookup& scaleOf)
{
    const auto monitors = X11Monitor::all(x);
    if (monitors.empty())
        return {};
    const X11WorkArea workArea(x);
    const double primaryHeight = monitors.front().pixels.height() / scaleOf(monitors.front().name);
    DisplayList displays;
    for (const X11Monitor& monitor : monitors) {
        Display display = displayOf(monitor, monitors.front(), scaleOf(monitor.name), primaryHeight);
        display.visibleFrame = display.toPoints(workArea.within(monitor.pixels, monitors.size() == 1));
        displays.push_back(std::move(display));
    }
    return displays;
}

X11Displays::X11Displays(std::unique_ptr<X11Connection> connection, ScaleLookup scaleOf)
    : m_connection(std::move(connection)), m_scaleOf(std::move(scaleOf))
{
    if (!m_connection->isAlive())
        return;
    listen();
    m_displays = read(*m_connection, m_scaleOf);
}

void X11Displays::listen()
{
    X11Connection& x = *m_connection;
    // Monitors that are defined by hand are told as a change of the root window's configuration only.
    const uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(x.handle(), x.root(), XCB_CW_EVENT_MASK, &mask);
    if (x.has(xcb_randr_id))
        xcb_randr_select_input(x.handle(), x.root(),
                               XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE | XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE |
                                   XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE);
    xcb_flush(x.handle());
    m_notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(x.handle()), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { handleEvents(); });
}

bool X11Displays::takeRelevantEvents()
{
    using namespace std::chrono_literals;
    X11Connection& x = *m_connection;
    const std::array properties{x.atom("_NET_WORKAREA"), x.atom("_NET_CURRENT_DESKTOP"),
                                x.atom(QByteArray(X11WorkArea::perDisplay) + '0')};
    bool isRelevant = false;
    while (const auto event = x.nextEvent(0ms)) {
        const auto* property = reinterpret_cast<const xcb_property_notify_event_t*>(event.get());
        if ((event->response_type & 0x7f) != XCB_PROPERTY_NOTIFY || std::ranges::count(properties, property->atom))
            isRelevant = true;
    }
    return isRelevant;
}

void X11Displays::handleEvents()
{
    const bool isChanged = takeRelevantEvents();
    if (!m_connection->isAlive())
        m_notifier->setEnabled(false);
    if (isChanged || !m_connection->isAlive())
        refresh();
}

bool X11Displays::isComposited() const
{
    return m_connection->isAlive() && m_connection->hasCompositor();
}

void X11Displays::refresh()
{
    // Events that arrive while the displays are read wait in xcb's queue, of which the notifier does not know.
    do
        readAgain();
    while (takeRelevantEvents());
}

void X11Displays::readAgain()
{
    auto displays = read(*m_connection, m_scaleOf);
    if (displays == m_displays)
        return;
    m_displays = std::move(displays);
    m_observers.notify();
}

} // namespace Kovrel
