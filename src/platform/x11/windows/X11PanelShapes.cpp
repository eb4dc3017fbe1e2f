#include "platform/x11/windows/X11PanelShapes.h"

#include <xcb/shape.h>

namespace Kovrel {

X11PanelShapes::X11PanelShapes(std::unique_ptr<X11Connection> connection) : m_connection(std::move(connection)) {}

void X11PanelShapes::takeInputOnlyIn(quintptr window, const QRect& pixels)
{
    if (!m_connection->isAlive() || !m_connection->has(xcb_shape_id))
        return;
    const xcb_rectangle_t rect{int16_t(pixels.x()), int16_t(pixels.y()), uint16_t(pixels.width()),
                               uint16_t(pixels.height())};
    xcb_shape_rectangles(m_connection->handle(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED,
                         xcb_window_t(window), 0, 0, 1, &rect);
    xcb_flush(m_connection->handle());
}

} // namespace Kovrel
