#include "platform/x11/windows/X11WindowPicker.h"

#include <QDeadlineTimer>

#include <array>

namespace Kovrel {

namespace {

constexpr std::chrono::milliseconds patienceForGrabs{2000};
constexpr std::chrono::milliseconds pauseBetweenGrabs{20};
constexpr int outlineWidth = 4;
constexpr quint32 outlineColour = 0xff2f7cf6;
constexpr uint16_t crosshairGlyph = 34; // of the server's cursor font; its mask follows
constexpr xcb_keysym_t escapeKey = 0xff1b;
constexpr xcb_button_t leftButton = 1;
constexpr xcb_button_t rightButton = 3;

xcb_cursor_t createCrosshair(xcb_connection_t* c)
{
    const xcb_font_t font = xcb_generate_id(c);
    const xcb_cursor_t cursor = xcb_generate_id(c);
    xcb_open_font(c, font, 6, "cursor");
    xcb_create_glyph_cursor(c, cursor, font, font, crosshairGlyph, crosshairGlyph + 1, 0, 0, 0, 0xffff, 0xffff, 0xffff);
    xcb_close_font(c, font);
    return cursor;
}

bool isEscape(X11Connection& x, xcb_keycode_t key)
{
    const auto mapping = x.reply(xcb_get_keyboard_mapping_reply, xcb_get_keyboard_mapping(x.handle(), key, 1));
    return mapping && mapping->keysyms_per_keycode > 0 && *xcb_get_keyboard_mapping_keysyms(mapping.get()) == escapeKey;
}

std::array<QRect, 4> edgesOf(const QRect& rect)
{
    const QRect outer = rect.adjusted(-outlineWidth, -outlineWidth, outlineWidth, outlineWidth);
    return {QRect(outer.x(), outer.y(), outer.width(), outlineWidth),
            QRect(outer.x(), rect.bottom() + 1, outer.width(), outlineWidth),
            QRect(outer.x(), rect.y(), outlineWidth, rect.height()),
            QRect(rect.right() + 1, rect.y(), outlineWidth, rect.height())};
}

} // namespace

X11WindowPicker::X11WindowPicker(X11Connection& connection) : m_connection(connection)
{
    if (auto windows = X11WindowList::read(connection))
        m_windows = *std::move(windows);
    createOutline();
}

X11WindowPicker::~X11WindowPicker()
{
    xcb_connection_t* c = m_connection.handle();
    xcb_ungrab_pointer(c, XCB_CURRENT_TIME);
    xcb_ungrab_keyboard(c, XCB_CURRENT_TIME);
    for (const xcb_window_t edge : m_edges)
        xcb_destroy_window(c, edge);
    m_connection.roundTrip();
}

void X11WindowPicker::createOutline()
{
    xcb_connection_t* c = m_connection.handle();
    const uint32_t values[] = {outlineColour, true};
    for (int edge = 0; edge < 4; ++edge) {
        m_edges.push_back(xcb_generate_id(c));
        xcb_create_window(c, XCB_COPY_FROM_PARENT, m_edges.back(), m_connection.root(), 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
    }
}

// A hotkey that started us holds the keyboard for as long as it is down.
bool X11WindowPicker::grabInput()
{
    const xcb_cursor_t crosshair = createCrosshair(m_connection.handle());
    const QDeadlineTimer deadline(patienceForGrabs);
    while (!grabPointer(crosshair) || !grabKeyboard()) {
        if (deadline.hasExpired() || !m_connection.isAlive())
            return false;
        m_connection.nextEvent(pauseBetweenGrabs);
    }
    return true;
}

bool X11WindowPicker::grabPointer(xcb_cursor_t cursor)
{
    const auto reply = m_connection.reply(xcb_grab_pointer_reply,
                                          xcb_grab_pointer(m_connection.handle(), false, m_connection.root(),
                                                           XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_POINTER_MOTION,
                                                           XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC, XCB_NONE, cursor,
                                                           XCB_CURRENT_TIME));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

bool X11WindowPicker::grabKeyboard()
{
    const auto reply = m_connection.reply(
        xcb_grab_keyboard_reply, xcb_grab_keyboard(m_connection.handle(), false, m_connection.root(), XCB_CURRENT_TIME,
                                                   XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

const WindowInfo* X11WindowPicker::windowAt(QPoint rootPixel) const
{
    for (const X11WindowList::Entry& entry : m_windows) {
        if (entry.info.isOnScreen && entry.info.type != WindowType::desktop && entry.info.pixelRect.contains(rootPixel))
            return &entry.info;
    }
    return nullptr;
}

void X11WindowPicker::outline(QPoint rootPixel)
{
    xcb_connection_t* c = m_connection.handle();
    const WindowInfo* window = windowAt(rootPixel);
    if (window == m_outlined)
        return;
    m_outlined = window;
    for (size_t index = 0; index < m_edges.size(); ++index) {
        if (!window) {
            xcb_unmap_window(c, m_edges[index]);
            continue;
        }
        const QRect edge = edgesOf(window->pixelRect)[index];
        const uint32_t values[] = {uint32_t(edge.x()), uint32_t(edge.y()), uint32_t(edge.width()),
                                   uint32_t(edge.height()), XCB_STACK_MODE_ABOVE};
        xcb_configure_window(c, m_edges[index],
                             XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                                 XCB_CONFIG_WINDOW_HEIGHT | XCB_CONFIG_WINDOW_STACK_MODE,
                             values);
        xcb_map_window(c, m_edges[index]);
    }
}

std::expected<xcb_window_t, X11WindowPicker::Failure> X11WindowPicker::pick()
{
    if (!grabInput())
        return std::unexpected(Failure::refused);
    if (const auto pointer =
            m_connection.reply(xcb_query_pointer_reply, xcb_query_pointer(m_connection.handle(), m_connection.root())))
        outline({pointer->root_x, pointer->root_y});
    while (m_connection.isAlive()) {
        const auto event = m_connection.nextEvent(std::chrono::hours(1));
        const int type = event ? event->response_type & 0x7f : 0;
        if (type == XCB_MOTION_NOTIFY) {
            const auto* motion = reinterpret_cast<const xcb_motion_notify_event_t*>(event.get());
            outline({motion->root_x, motion->root_y});
        } else if (type == XCB_KEY_PRESS) {
            if (isEscape(m_connection, reinterpret_cast<const xcb_key_press_event_t*>(event.get())->detail))
                return std::unexpected(Failure::cancelled);
        } else if (type == XCB_BUTTON_PRESS) {
            const auto* press = reinterpret_cast<const xcb_button_press_event_t*>(event.get());
            outline({press->root_x, press->root_y});
            if (press->detail == rightButton)
                return std::unexpected(Failure::cancelled);
            if (press->detail == leftButton && m_outlined)
                return m_outlined->id;
        }
    }
    return std::unexpected(Failure::refused);
}

} // namespace Kovrel
