#include "tests/support/PaintedScreen.h"

#include <QDeadlineTimer>

#include <stdexcept>

#include <poll.h>

#include <xcb/shape.h>
#include <xcb/xtest.h>

namespace Kovrel::Testing {

namespace {

// The visual of true colour with this depth.
xcb_visualid_t visualOfDepth(const xcb_screen_t* screen, uint8_t depth)
{
    for (auto depths = xcb_screen_allowed_depths_iterator(screen); depths.rem > 0; xcb_depth_next(&depths)) {
        for (auto visuals = xcb_depth_visuals_iterator(depths.data); visuals.rem > 0; xcb_visualtype_next(&visuals)) {
            if (depths.data->depth == depth && visuals.data->_class == XCB_VISUAL_CLASS_TRUE_COLOR)
                return visuals.data->visual_id;
        }
    }
    return XCB_NONE;
}

} // namespace

PaintedScreen::PaintedScreen(const QByteArray& display) : m_connection(xcb_connect(display.constData(), nullptr))
{
    if (xcb_connection_has_error(m_connection) != 0)
        throw std::runtime_error("no X server");
    m_screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
    m_painter = std::thread([this] { repaint(); });
}

PaintedScreen::~PaintedScreen()
{
    m_isEnding = true;
    m_painter.join();
    xcb_disconnect(m_connection);
}

xcb_atom_t PaintedScreen::atom(const QByteArray& name) const
{
    auto* reply = xcb_intern_atom_reply(
        m_connection, xcb_intern_atom(m_connection, false, uint16_t(name.size()), name.constData()), nullptr);
    const xcb_atom_t result = reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    free(reply);
    return result;
}

void PaintedScreen::roundTrip() const
{
    free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

xcb_window_t PaintedScreen::create(const Look& look)
{
    const xcb_window_t window = xcb_generate_id(m_connection);
    const uint8_t depth = look.colour.alpha() < 255 ? 32 : 24;
    const xcb_visualid_t visual = visualOfDepth(m_screen, depth);
    const xcb_colormap_t colours = xcb_generate_id(m_connection);
    xcb_create_colormap(m_connection, XCB_COLORMAP_ALLOC_NONE, colours, m_screen->root, visual);
    // White until it is painted: a grab that comes too early shows.
    const uint32_t values[] = {look.paintsLate ? uint32_t(XCB_BACK_PIXMAP_NONE) : 0xffffffff, 0, look.managesItself,
                               XCB_EVENT_MASK_EXPOSURE, colours};
    const QRect& r = look.pixels;
    xcb_create_window(m_connection, depth, window, m_screen->root, int16_t(r.x()), int16_t(r.y()), uint16_t(r.width()),
                      uint16_t(r.height()), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, visual,
                      (look.paintsLate ? XCB_CW_BACK_PIXMAP : XCB_CW_BACK_PIXEL) | XCB_CW_BORDER_PIXEL |
                          XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK | XCB_CW_COLORMAP,
                      values);
    return window;
}

xcb_window_t PaintedScreen::show(const Look& look)
{
    const xcb_window_t window = create(look);
    {
        const std::lock_guard lock(m_lock);
        m_windows[window] = {qPremultiply(look.colour.rgba()), look.pixels.size(), look.paintsLate};
    }
    // Program's position, so that a window manager leaves it where it is.
    const quint32 hints[18] = {1 << 0 | 1 << 2, quint32(look.pixels.x()), quint32(look.pixels.y())};
    setNumbers(window, "WM_NORMAL_HINTS", "WM_SIZE_HINTS", {hints, hints + 18});
    if (!look.type.isEmpty())
        setNumbers(window, "_NET_WM_WINDOW_TYPE", "ATOM", {atom(look.type)});
    if (look.pid)
        setNumbers(window, "_NET_WM_PID", "CARDINAL", {quint32(look.pid)});
    const QByteArray classes = look.className.toLower() + '\0' + look.className + '\0';
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8,
                        uint32_t(classes.size()), classes.constData());
    xcb_map_window(m_connection, window);
    xcb_flush(m_connection);
    waitUntilPainted(window);
    return window;
}

void PaintedScreen::hide(xcb_window_t window)
{
    xcb_unmap_window(m_connection, window);
    roundTrip();
}

void PaintedScreen::raise(xcb_window_t window)
{
    const uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(m_connection, window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    roundTrip();
}

void PaintedScreen::setShape(xcb_window_t window, QRect shape)
{
    const xcb_rectangle_t rectangle{int16_t(shape.x()), int16_t(shape.y()), uint16_t(shape.width()),
                                    uint16_t(shape.height())};
    xcb_shape_rectangles(m_connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, XCB_CLIP_ORDERING_UNSORTED, window, 0,
                         0, 1, &rectangle);
    roundTrip();
}

void PaintedScreen::letClicksThrough(xcb_window_t window)
{
    xcb_shape_rectangles(m_connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED, window, 0, 0,
                         0, nullptr);
    roundTrip();
}

void PaintedScreen::waitUntilPainted(xcb_window_t window)
{
    const QDeadlineTimer deadline(20000);
    for (;;) {
        {
            const std::lock_guard lock(m_lock);
            if (m_windows[window].isPainted)
                break;
        }
        if (deadline.hasExpired())
            throw std::runtime_error("a window was never asked to paint itself");
        std::this_thread::yield();
    }
    roundTrip();
}

void PaintedScreen::repaint()
{
    while (!m_isEnding && xcb_connection_has_error(m_connection) == 0) {
        pollfd descriptor{xcb_get_file_descriptor(m_connection), POLLIN, 0};
        poll(&descriptor, 1, 5);
        while (auto* event = xcb_poll_for_event(m_connection)) {
            if ((event->response_type & 0x7f) == XCB_EXPOSE)
                paint(reinterpret_cast<const xcb_expose_event_t*>(event)->window);
            free(event);
        }
    }
}

void PaintedScreen::paint(xcb_window_t window)
{
    const std::lock_guard lock(m_lock);
    Painted& look = m_windows[window];
    if (look.paintsLate)
        std::this_thread::sleep_for(std::chrono::milliseconds(60));
    const xcb_gcontext_t context = xcb_generate_id(m_connection);
    const xcb_rectangle_t whole{0, 0, uint16_t(look.size.width()), uint16_t(look.size.height())};
    xcb_create_gc(m_connection, context, window, XCB_GC_FOREGROUND, &look.pixel);
    xcb_poly_fill_rectangle(m_connection, window, context, 1, &whole);
    xcb_free_gc(m_connection, context);
    xcb_flush(m_connection);
    look.isPainted = true;
}

void PaintedScreen::setNumbers(xcb_window_t window, const char* property, const char* type,
                               const std::vector<quint32>& values)
{
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, atom(property), atom(type), 32,
                        uint32_t(values.size()), values.data());
    roundTrip();
}

void PaintedScreen::setNumbersOnRoot(const char* property, const char* type, const std::vector<quint32>& values)
{
    setNumbers(m_screen->root, property, type, values);
}

void PaintedScreen::setRootPicture(const QImage& picture)
{
    const xcb_pixmap_t pixmap = xcb_generate_id(m_connection);
    const xcb_gcontext_t context = xcb_generate_id(m_connection);
    xcb_create_pixmap(m_connection, 24, pixmap, m_screen->root, uint16_t(picture.width()), uint16_t(picture.height()));
    xcb_create_gc(m_connection, context, pixmap, 0, nullptr);
    const int rowsAtOnce = std::max(1, int(200'000 / picture.bytesPerLine())); // within the longest request
    for (int y = 0; y < picture.height(); y += rowsAtOnce) {
        const int rows = std::min(rowsAtOnce, picture.height() - y);
        xcb_put_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context, uint16_t(picture.width()),
                      uint16_t(rows), 0, int16_t(y), 0, 24, uint32_t(rows * picture.bytesPerLine()),
                      picture.constScanLine(y));
    }
    xcb_change_window_attributes(m_connection, m_screen->root, XCB_CW_BACK_PIXMAP, &pixmap);
    xcb_clear_area(m_connection, false, m_screen->root, 0, 0, 0, 0);
    xcb_free_gc(m_connection, context);
    setNumbersOnRoot("_XROOTPMAP_ID", "PIXMAP", {pixmap});
}

void PaintedScreen::movePointer(QPoint rootPixel)
{
    xcb_warp_pointer(m_connection, XCB_NONE, m_screen->root, 0, 0, 0, 0, int16_t(rootPixel.x()),
                     int16_t(rootPixel.y()));
    roundTrip();
}

void PaintedScreen::setCursor(int size, QColor colour)
{
    const xcb_pixmap_t shape = xcb_generate_id(m_connection);
    const xcb_gcontext_t context = xcb_generate_id(m_connection);
    const xcb_cursor_t cursor = xcb_generate_id(m_connection);
    const uint32_t set = 1;
    const xcb_rectangle_t whole{0, 0, uint16_t(size), uint16_t(size)};
    xcb_create_pixmap(m_connection, 1, shape, m_screen->root, whole.width, whole.height);
    xcb_create_gc(m_connection, context, shape, XCB_GC_FOREGROUND, &set);
    xcb_poly_fill_rectangle(m_connection, shape, context, 1, &whole);
    const auto channel = [](int value) { return uint16_t(value * 257); };
    xcb_create_cursor(m_connection, cursor, shape, shape, channel(colour.red()), channel(colour.green()),
                      channel(colour.blue()), 0, 0, 0, uint16_t(size / 2), uint16_t(size / 2));
    xcb_change_window_attributes(m_connection, m_screen->root, XCB_CW_CURSOR, &cursor);
    roundTrip();
}

void PaintedScreen::press(QPoint rootPixel, int button)
{
    movePointer(rootPixel);
    xcb_test_fake_input(m_connection, XCB_BUTTON_PRESS, uint8_t(button), XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    roundTrip();
}

void PaintedScreen::release(int button)
{
    xcb_test_fake_input(m_connection, XCB_BUTTON_RELEASE, uint8_t(button), XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    roundTrip();
}

void PaintedScreen::click(QPoint rootPixel, int button)
{
    press(rootPixel, button);
    release(button);
}

void PaintedScreen::drag(QPoint from, QPoint to)
{
    press(from);
    movePointer((from + to) / 2);
    movePointer(to);
    release();
}

void PaintedScreen::typeEscape()
{
    constexpr uint8_t escape = 9; // on every layout
    for (const uint8_t type : {XCB_KEY_PRESS, XCB_KEY_RELEASE})
        xcb_test_fake_input(m_connection, type, escape, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    roundTrip();
}

bool PaintedScreen::holdPointer()
{
    auto* reply = xcb_grab_pointer_reply(m_connection,
                                         xcb_grab_pointer(m_connection, false, m_screen->root, 0, XCB_GRAB_MODE_ASYNC,
                                                          XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME),
                                         nullptr);
    const bool isHeld = reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
    free(reply);
    xcb_ungrab_pointer(m_connection, XCB_CURRENT_TIME);
    roundTrip();
    return isHeld;
}

QRgb PaintedScreen::pixelAt(QPoint rootPixel) const
{
    auto* reply = xcb_get_image_reply(m_connection,
                                      xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, m_screen->root,
                                                    int16_t(rootPixel.x()), int16_t(rootPixel.y()), 1, 1, ~0u),
                                      nullptr);
    const QRgb pixel = reply ? *reinterpret_cast<const QRgb*>(xcb_get_image_data(reply)) & 0xffffff : 0;
    free(reply);
    return pixel;
}

std::vector<QRect> PaintedScreen::panels() const
{
    std::vector<QRect> panels;
    xcb_query_tree_reply_t* tree = xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, root()), nullptr);
    for (int index = 0; index < xcb_query_tree_children_length(tree); ++index) {
        const xcb_window_t window = xcb_query_tree_children(tree)[index];
        auto* look =
            xcb_get_window_attributes_reply(m_connection, xcb_get_window_attributes(m_connection, window), nullptr);
        auto* place = xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, window), nullptr);
        if (look && place && look->override_redirect && look->map_state == XCB_MAP_STATE_VIEWABLE) {
            const QRect pixels(place->x, place->y, place->width, place->height);
            if (pixels.intersects({0, 0, m_screen->width_in_pixels, m_screen->height_in_pixels}))
                panels.push_back(pixels);
        }
        std::free(look);
        std::free(place);
    }
    std::free(tree);
    return panels;
}

bool PaintedScreen::hasOwner(const QByteArray& selection) const
{
    auto* reply =
        xcb_get_selection_owner_reply(m_connection, xcb_get_selection_owner(m_connection, atom(selection)), nullptr);
    const bool isOwned = reply && reply->owner != XCB_NONE;
    free(reply);
    return isOwned;
}

} // namespace Kovrel::Testing
