#include "platform/x11/windows/X11Frame.h"

#include "platform/x11/X11Property.h"

#include <QMargins>

namespace Kovrel {

namespace {

// Both properties are left, right, top, bottom.
std::optional<QMargins> marginsOf(const std::vector<quint32>& values)
{
    if (values.size() < 4)
        return {};
    return QMargins(int(values[0]), int(values[2]), int(values[1]), int(values[3]));
}

QRect outerRect(const xcb_get_geometry_reply_t& geometry)
{
    const int border = 2 * geometry.border_width;
    return {geometry.x, geometry.y, geometry.width + border, geometry.height + border};
}

} // namespace

xcb_window_t X11Frame::topLevelOf(X11Connection& x, xcb_window_t window)
{
    for (;;) {
        const auto tree = x.reply(xcb_query_tree_reply, xcb_query_tree(x.handle(), window));
        if (!tree || tree->parent == XCB_NONE)
            return XCB_NONE;
        if (tree->parent == tree->root)
            return window;
        window = tree->parent;
    }
}

std::optional<X11Frame> X11Frame::of(X11Connection& x, xcb_window_t window)
{
    xcb_connection_t* c = x.handle();
    const xcb_window_t topLevel = topLevelOf(x, window);
    X11Property invisible(x, window, "_GTK_FRAME_EXTENTS");
    X11Property decoration(x, window, "_NET_FRAME_EXTENTS");
    const auto outerCookie = xcb_get_geometry(c, topLevel);
    const auto innerCookie = xcb_get_geometry(c, window);
    const auto originCookie = xcb_translate_coordinates(c, window, x.root(), 0, 0);
    const auto attributesCookie = xcb_get_window_attributes(c, window);
    const auto outer = x.reply(xcb_get_geometry_reply, outerCookie);
    const auto inner = x.reply(xcb_get_geometry_reply, innerCookie);
    const auto origin = x.reply(xcb_translate_coordinates_reply, originCookie);
    const auto attributes = x.reply(xcb_get_window_attributes_reply, attributesCookie);
    if (!outer || !inner || !origin || !attributes)
        return {};

    X11Frame frame{.topLevel = topLevel,
                   .outer = outerRect(*outer),
                   .visible = outerRect(*outer),
                   .client = {origin->dst_x, origin->dst_y, inner->width, inner->height},
                   .isViewable = attributes->map_state == XCB_MAP_STATE_VIEWABLE};
    if (const auto margins = marginsOf(invisible.numbers()))
        frame.visible = frame.outer & frame.client.marginsRemoved(*margins);
    else if (const auto extents = marginsOf(decoration.numbers()))
        frame.visible = frame.outer & frame.client.marginsAdded(*extents);
    return frame;
}

} // namespace Kovrel
