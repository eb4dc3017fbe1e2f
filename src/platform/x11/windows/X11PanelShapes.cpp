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
    refuseShadow(xcb_window_t(window));
    xcb_flush(m_connection->handle());
}

// What takes no input around its edges has its shadow there; a compositor would put another one around the whole.
void X11PanelShapes::refuseShadow(xcb_window_t window)
{
    const uint32_t none = 0;
    xcb_change_property(m_connection->handle(), XCB_PROP_MODE_REPLACE, window, m_connection->atom("_COMPTON_SHADOW"),
                        XCB_ATOM_CARDINAL, 32, 1, &none);
}

} // namespace Kovrel
