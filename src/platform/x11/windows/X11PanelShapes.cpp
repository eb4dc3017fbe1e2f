#include "platform/x11/windows/X11PanelShapes.h"

#include <xcb/shape.h>

namespace Kovrel {

X11PanelShapes::X11PanelShapes(std::unique_ptr<X11Connection> connection) : m_connection(std::move(connection)) {}

void X11PanelShapes::takeInputOnlyIn(quintptr window, const QRegion& pixels)
{
    if (!m_connection->isAlive() || !m_connection->has(xcb_shape_id))
        return;
    std::vector<xcb_rectangle_t> rects;
    for (const QRect& rect : pixels)
        rects.push_back({int16_t(rect.x()), int16_t(rect.y()), uint16_t(rect.width()), uint16_t(rect.height())});
    xcb_shape_rectangles(m_connection->handle(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED,
                         xcb_window_t(window), 0, 0, uint32_t(rects.size()), rects.data());
    xcb_flush(m_connection->handle());
}

} // namespace Kovrel
