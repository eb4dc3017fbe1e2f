#include "platform/x11/overlay/X11Overlay.h"

#include "model/GrabFailure.h"
#include "model/VirtualKeys.h"
#include "platform/x11/X11Cursor.h"
#include "platform/x11/keys/X11Keyboard.h"

#include <algorithm>

#include <unistd.h>
#include <xcb/xtest.h>

namespace Kovrel {

namespace {

using namespace std::chrono_literals;

constexpr int mostOpenMenus = 12; // one within another; each wants an Escape of its own
constexpr auto untilMenuCloses = 40ms;

constexpr uint32_t windowEvents =
    XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE | XCB_EVENT_MASK_POINTER_MOTION;
// To hear of windows that come above ours, and of a switch of the workspace.
constexpr uint32_t rootEvents = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;

xcb_rectangle_t rectangle(const QRect& rect)
{
    return {int16_t(rect.x()), int16_t(rect.y()), uint16_t(rect.width()), uint16_t(rect.height())};
}

// Premultiplied, as the Render extension wants it.
xcb_render_color_t renderColour(QColor colour)
{
    const auto channel = [&](double value) { return uint16_t(qRound(value * colour.alphaF() * 0xffff)); };
    return {channel(colour.redF()), channel(colour.greenF()), channel(colour.blueF()),
            uint16_t(qRound(colour.alphaF() * 0xffff))};
}

} // namespace

X11Overlay::X11Overlay(std::shared_ptr<X11ImageReader> reader, const X11Visuals& visuals)
    : m_reader(std::move(reader)), m_connection(m_reader->connection()), m_visuals(visuals)
{
}

X11Overlay::~X11Overlay()
{
    xcb_connection_t* c = m_connection.handle();
    listen(m_connection.root(), XCB_EVENT_MASK_NO_EVENT);
    clearAway();
    for (const Window& window : m_windows) {
        xcb_render_free_picture(c, window.picture);
        xcb_free_gc(c, window.context);
        xcb_destroy_window(c, window.id);
    }
    if (m_colormap != XCB_NONE)
        xcb_free_colormap(c, m_colormap);
    xcb_flush(c);
}

// Compositors go on to show a window that is gone, for a few frames or while it fades: nothing of ours may be in it.
void X11Overlay::clearAway()
{
    for (const Window& window : m_windows)
        reveal(window.pixels);
    if (!isFrozen()) // whoever wants the pixels of the screen now asks for them on another connection
        m_connection.roundTrip();
}

// --- Opening

OverlaySurfaces::Outcome X11Overlay::open(std::vector<Surface> surfaces, OverlaySurfaces::Ground ground, QColor shade)
{
    if (!m_connection.isAlive())
        return std::unexpected(reason(GrabFailure::serverGone));
    if (surfaces.empty())
        return std::unexpected(QStringLiteral("there is no display"));
    m_shade = shade;
    const bool isComposited = m_connection.hasCompositor();
    bool isPointerHeld = false;
    {
        const X11Connection::ServerHold hold(m_connection);
        if (!freeze(surfaces))
            return std::unexpected(
                reason(m_connection.hasPlainPixels() ? GrabFailure::refused : GrabFailure::otherPixels));
        // What holds the pointer, as an open menu, must go: it can be seen on the frozen ground only.
        isPointerHeld = !isPointerFree();
        m_ground = isPointerHeld ? OverlaySurfaces::Ground::frozen : ground;
        if (visual().format == XCB_NONE)
            return std::unexpected(reason(GrabFailure::notSupported));
        for (size_t index = 0; index < surfaces.size(); ++index)
            create(m_windows[index], surfaces[index].cursor);
        for (const Window& window : m_windows)
            show(window, isComposited);
    }
    listen(m_connection.root(), rootEvents);
    // Not before: what mapping exposes is painted already.
    for (const Window& window : m_windows)
        listen(window.id, windowEvents | XCB_EVENT_MASK_EXPOSURE);
    m_connection.roundTrip();
    if (!m_connection.isAlive())
        return std::unexpected(reason(GrabFailure::serverGone));
    OverlaySurfaces::Opened opened{.ground = m_ground, .screens = {}, .isPointerHeld = isPointerHeld};
    for (const Window& window : m_windows)
        opened.screens.push_back({window.displayID, window.pixels, window.screen});
    return opened;
}

bool X11Overlay::freeze(const std::vector<Surface>& surfaces)
{
    std::vector<Window> windows;
    for (const Surface& surface : surfaces) {
        const QRect pixels = surface.display.pixelRect;
        const auto image = m_reader->read(m_connection.root(), pixels, X11ImageReader::Alpha::unused);
        if (!image)
            return false;
        windows.push_back(
            {.displayID = surface.display.id, .pixels = pixels, .frozen = m_reader->placeOf(*image), .screen = *image});
    }
    m_windows = std::move(windows);
    return !m_windows.empty();
}

const X11Visual& X11Overlay::visual() const
{
    return isFrozen() ? m_visuals.opaque : m_visuals.translucent;
}

void X11Overlay::show(const Window& window, bool isComposited)
{
    const QRect whole({}, window.pixels.size());
    xcb_map_window(m_connection.handle(), window.id);
    if (isFrozen() && isComposited)
        putScreen(window, whole);
    fill(window, whole, isFrozen() ? XCB_RENDER_PICT_OP_OVER : XCB_RENDER_PICT_OP_SRC, m_shade);
}

void X11Overlay::create(Window& window, const OverlayCursor& cursor)
{
    xcb_connection_t* c = m_connection.handle();
    if (!isFrozen() && m_colormap == XCB_NONE) {
        m_colormap = xcb_generate_id(c);
        xcb_create_colormap(c, XCB_COLORMAP_ALLOC_NONE, m_colormap, m_connection.root(), visual().id);
    }
    const xcb_cursor_t pointer = X11Cursor::create(m_connection, m_visuals, cursor);
    window.id = xcb_generate_id(c);
    const uint32_t values[] = {XCB_BACK_PIXMAP_NONE,
                               0,
                               true,
                               windowEvents,
                               isFrozen() ? m_connection.screen().default_colormap : m_colormap,
                               pointer};
    xcb_create_window(c, visual().depth, window.id, m_connection.root(), int16_t(window.pixels.x()),
                      int16_t(window.pixels.y()), uint16_t(window.pixels.width()), uint16_t(window.pixels.height()), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, visual().id,
                      XCB_CW_BACK_PIXMAP | XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK |
                          XCB_CW_COLORMAP | XCB_CW_CURSOR,
                      values);
    if (pointer != XCB_NONE)
        xcb_free_cursor(c, pointer);
    nameWindow(window.id);
    window.context = xcb_generate_id(c);
    xcb_create_gc(c, window.context, window.id, 0, nullptr);
    window.picture = xcb_generate_id(c);
    xcb_render_create_picture(c, window.picture, window.id, visual().format, 0, nullptr);
}

// The process tells our own windows from others; compositors give windows of the type no shadow and no animation.
void X11Overlay::nameWindow(xcb_window_t window)
{
    xcb_connection_t* c = m_connection.handle();
    const auto pid = uint32_t(getpid());
    const xcb_atom_t type = m_connection.atom("_NET_WM_WINDOW_TYPE_DND");
    constexpr char windowClass[] = "kovrel\0Kovrel";
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, window, m_connection.atom("_NET_WM_PID"), XCB_ATOM_CARDINAL, 32, 1,
                        &pid);
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, window, m_connection.atom("_NET_WM_WINDOW_TYPE"), XCB_ATOM_ATOM, 32,
                        1, &type);
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8, sizeof windowClass,
                        windowClass);
}

void X11Overlay::listen(xcb_window_t window, uint32_t events)
{
    xcb_change_window_attributes(m_connection.handle(), window, XCB_CW_EVENT_MASK, &events);
}

// --- The pointer

// Whoever holds the pointer keeps it from everybody else; that can only be found out by trying.
bool X11Overlay::isPointerFree()
{
    xcb_connection_t* c = m_connection.handle();
    const auto answer = m_connection.reply(xcb_grab_pointer_reply,
                                           xcb_grab_pointer(c, true, m_connection.root(), 0, XCB_GRAB_MODE_ASYNC,
                                                            XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME));
    if (!answer || answer->status != XCB_GRAB_STATUS_SUCCESS)
        return false;
    xcb_ungrab_pointer(c, XCB_CURRENT_TIME);
    return true;
}

void X11Overlay::pressEscape()
{
    xcb_connection_t* c = m_connection.handle();
    X11Keyboard keyboard(m_connection);
    keyboard.read();
    const auto keys = keyboard.keysFor(VirtualKeys::escape);
    if (keys.empty() || !m_connection.has(xcb_test_id))
        return;
    for (const uint8_t type : {XCB_KEY_PRESS, XCB_KEY_RELEASE})
        xcb_test_fake_input(c, type, keys.front(), XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    xcb_flush(c);
}

bool X11Overlay::takePointer()
{
    for (int menu = 0; menu < mostOpenMenus && m_connection.isAlive(); ++menu) {
        if (isPointerFree())
            return true;
        pressEscape();
        usleep(std::chrono::microseconds(untilMenuCloses).count());
    }
    return isPointerFree();
}

void X11Overlay::movePointer(QPoint rootPixel)
{
    xcb_warp_pointer(m_connection.handle(), XCB_NONE, m_connection.root(), 0, 0, 0, 0, int16_t(rootPixel.x()),
                     int16_t(rootPixel.y()));
    xcb_flush(m_connection.handle());
}

void X11Overlay::setCursor(quint32 displayID, const OverlayCursor& cursor)
{
    xcb_connection_t* c = m_connection.handle();
    const xcb_cursor_t pointer = X11Cursor::create(m_connection, m_visuals, cursor);
    for (const Window& window : m_windows)
        if (window.displayID == displayID)
            xcb_change_window_attributes(c, window.id, XCB_CW_CURSOR, &pointer);
    if (pointer != XCB_NONE)
        xcb_free_cursor(c, pointer);
    xcb_flush(c);
}

// --- Order

void X11Overlay::raise()
{
    const uint32_t above = XCB_STACK_MODE_ABOVE;
    for (const Window& window : m_windows)
        xcb_configure_window(m_connection.handle(), window.id, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    xcb_flush(m_connection.handle());
}

bool X11Overlay::isOurs(xcb_window_t window) const
{
    return std::ranges::find(m_windows, window, &Window::id) != m_windows.end();
}

QRect X11Overlay::exposedBy(const xcb_generic_event_t& event) const
{
    if ((event.response_type & 0x7f) != XCB_EXPOSE)
        return {};
    const auto& expose = reinterpret_cast<const xcb_expose_event_t&>(event);
    const auto window = std::ranges::find(m_windows, expose.window, &Window::id);
    if (window == m_windows.end())
        return {};
    return QRect(expose.x, expose.y, expose.width, expose.height).translated(window->pixels.topLeft());
}

xcb_window_t X11Overlay::coveredBy(const xcb_generic_event_t& event) const
{
    const int type = event.response_type & 0x7f;
    if (type == XCB_MAP_NOTIFY) {
        const auto& map = reinterpret_cast<const xcb_map_notify_event_t&>(event);
        if (map.override_redirect && !isOurs(map.window))
            return map.window;
    } else if (type == XCB_CONFIGURE_NOTIFY) {
        const auto& configure = reinterpret_cast<const xcb_configure_notify_event_t&>(event);
        if (!isOurs(configure.window) && isOurs(configure.above_sibling))
            return configure.window;
    }
    return XCB_NONE;
}

// --- Drawing

template <class Draw>
void X11Overlay::onEach(const QRect& rootPixels, Draw draw)
{
    for (const Window& window : m_windows) {
        const QRect part = window.pixels & rootPixels;
        if (!part.isEmpty())
            draw(window, part.translated(-window.pixels.topLeft()));
    }
    xcb_flush(m_connection.handle());
}

void X11Overlay::reveal(const QRect& rootPixels)
{
    onEach(rootPixels, [this](const Window& window, const QRect& part) {
        if (isFrozen())
            putScreen(window, part);
        else
            fill(window, part, XCB_RENDER_PICT_OP_SRC, Qt::transparent);
    });
}

void X11Overlay::shade(const QRect& rootPixels)
{
    onEach(rootPixels, [this](const Window& window, const QRect& part) {
        if (isFrozen()) {
            putScreen(window, part);
            fill(window, part, XCB_RENDER_PICT_OP_OVER, m_shade);
        } else {
            fill(window, part, XCB_RENDER_PICT_OP_SRC, m_shade);
        }
    });
}

void X11Overlay::put(QPoint rootPixel, const QImage& pixels)
{
    onEach(QRect(rootPixel, pixels.size()), [&](const Window& window, const QRect& part) {
        const QPoint first = window.pixels.topLeft() + part.topLeft() - rootPixel;
        putCopied(window, part.topLeft(),
                  part.size() == pixels.size() ? pixels : pixels.copy(QRect(first, part.size())));
    });
}

void X11Overlay::fill(const Window& window, const QRect& part, uint8_t operation, QColor colour)
{
    const xcb_rectangle_t area = rectangle(part);
    xcb_render_fill_rectangles(m_connection.handle(), operation, window.picture, renderColour(colour), 1, &area);
}

void X11Overlay::putScreen(const Window& window, const QRect& part)
{
    if (!window.frozen) {
        putCopied(window, part.topLeft(), window.screen.copy(part));
        return;
    }
    xcb_shm_put_image(m_connection.handle(), window.id, window.context, uint16_t(window.screen.width()),
                      uint16_t(window.screen.height()), uint16_t(part.x()), uint16_t(part.y()), uint16_t(part.width()),
                      uint16_t(part.height()), int16_t(part.x()), int16_t(part.y()), m_visuals.opaque.depth,
                      XCB_IMAGE_FORMAT_Z_PIXMAP, false, window.frozen->id, window.frozen->offset);
}

void X11Overlay::putCopied(const Window& window, QPoint at, const QImage& pixels)
{
    constexpr uint32_t header = 64;
    xcb_connection_t* c = m_connection.handle();
    const auto stride = uint32_t(pixels.bytesPerLine());
    const int rows = int((xcb_get_maximum_request_length(c) * 4 - header) / stride);
    for (int row = 0; row < pixels.height(); row += rows) {
        const int count = std::min(rows, pixels.height() - row);
        xcb_put_image(c, XCB_IMAGE_FORMAT_Z_PIXMAP, window.id, window.context, uint16_t(pixels.width()),
                      uint16_t(count), int16_t(at.x()), int16_t(at.y() + row), 0, visual().depth,
                      uint32_t(count) * stride, pixels.constScanLine(row));
    }
}

} // namespace Kovrel
