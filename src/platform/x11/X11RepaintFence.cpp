#include "platform/x11/X11RepaintFence.h"

#include <QDeadlineTimer>

#include <cstdlib>
#include <thread>

namespace Kovrel {

namespace {

using namespace std::chrono_literals;

// For each of the two changes. A compositor without a graphics card takes half a second on a busy machine.
constexpr auto patience = 2s;
constexpr auto betweenLooks = 1ms;

// A colour that differs by half of its range from another in each channel.
constexpr QRgb mark = 0x808080;
constexpr int markedBy = 3 * 0x80;

int difference(QRgb one, QRgb other)
{
    return std::abs(qRed(one) - qRed(other)) + std::abs(qGreen(one) - qGreen(other)) +
           std::abs(qBlue(one) - qBlue(other));
}

} // namespace

X11RepaintFence::X11RepaintFence(X11ImageReader& reader, QPoint pixel)
    : m_reader(reader), m_handle(reader.connection().handle()), m_pixel(pixel)
{
    const auto ground = seen();
    if (!ground)
        return;
    m_ground = *ground;
    m_window = xcb_generate_id(m_handle);
    const uint32_t values[] = {m_ground, true};
    xcb_create_window(m_handle, XCB_COPY_FROM_PARENT, m_window, reader.connection().root(), int16_t(pixel.x()),
                      int16_t(pixel.y()), 1, 1, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
    // Compositors give windows of this type no shadow and no animation, and show them above panels.
    const xcb_atom_t type = reader.connection().atom("_NET_WM_WINDOW_TYPE_DND");
    xcb_change_property(m_handle, XCB_PROP_MODE_REPLACE, m_window, reader.connection().atom("_NET_WM_WINDOW_TYPE"),
                        XCB_ATOM_ATOM, 32, 1, &type);
    xcb_map_window(m_handle, m_window);
}

X11RepaintFence::~X11RepaintFence()
{
    if (m_window == XCB_NONE)
        return;
    xcb_destroy_window(m_handle, m_window);
    xcb_flush(m_handle);
}

bool X11RepaintFence::pass()
{
    if (m_window == XCB_NONE)
        return false;
    paint(m_ground ^ mark);
    const bool isShown = waitUntilSeen(true);
    paint(m_ground);
    return waitUntilSeen(false) && isShown;
}

std::optional<QRgb> X11RepaintFence::seen()
{
    const auto image =
        m_reader.read(m_reader.connection().root(), QRect(m_pixel, QSize(1, 1)), X11ImageReader::Alpha::opaque);
    return image ? std::optional(image->pixel(0, 0) & RGB_MASK) : std::nullopt;
}

void X11RepaintFence::paint(QRgb colour)
{
    xcb_change_window_attributes(m_handle, m_window, XCB_CW_BACK_PIXEL, &colour);
    xcb_clear_area(m_handle, false, m_window, 0, 0, 0, 0);
    xcb_flush(m_handle);
}

// A compositor that lets windows appear slowly shows a part of the colour first, which is enough.
bool X11RepaintFence::waitUntilSeen(bool isSeen)
{
    const QDeadlineTimer deadline(patience);
    while (!deadline.hasExpired()) {
        const auto colour = seen();
        if (!colour)
            return false;
        if ((difference(*colour, m_ground) > markedBy / 4) == isSeen)
            return true;
        std::this_thread::sleep_for(betweenLooks);
    }
    return false;
}

} // namespace Kovrel
