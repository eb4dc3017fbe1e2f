#include "platform/x11/X11Cursor.h"

#include <xcb/xfixes.h>

namespace Kovrel {

std::optional<PointerImage> X11Cursor::read(X11Connection& x)
{
    if (!x.has(xcb_xfixes_id))
        return {};
    const auto cursor = x.reply(xcb_xfixes_get_cursor_image_reply, xcb_xfixes_get_cursor_image(x.handle()));
    if (!cursor)
        return {};
    const auto* pixels = reinterpret_cast<const uchar*>(xcb_xfixes_get_cursor_image_cursor_image(cursor.get()));
    const QImage image(pixels, cursor->width, cursor->height, QImage::Format_ARGB32_Premultiplied);
    return PointerImage{image.copy(), QPoint(cursor->x - cursor->xhot, cursor->y - cursor->yhot)};
}

xcb_cursor_t X11Cursor::create(X11Connection& x, const X11Visuals& visuals, const OverlayCursor& cursor)
{
    if (visuals.translucent.format == XCB_NONE || cursor.image.isNull())
        return XCB_NONE;
    xcb_connection_t* c = x.handle();
    const QImage image = cursor.image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const auto width = uint16_t(image.width());
    const auto height = uint16_t(image.height());
    const xcb_pixmap_t pixmap = xcb_generate_id(c);
    xcb_create_pixmap(c, 32, pixmap, x.root(), width, height);
    const xcb_gcontext_t context = xcb_generate_id(c);
    xcb_create_gc(c, context, pixmap, 0, nullptr);
    xcb_put_image(c, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context, width, height, 0, 0, 0, 32,
                  uint32_t(image.sizeInBytes()), image.constBits());
    const xcb_render_picture_t picture = xcb_generate_id(c);
    xcb_render_create_picture(c, picture, pixmap, visuals.translucent.format, 0, nullptr);
    const xcb_cursor_t id = xcb_generate_id(c);
    xcb_render_create_cursor(c, id, picture, uint16_t(cursor.hotSpot.x()), uint16_t(cursor.hotSpot.y()));
    xcb_render_free_picture(c, picture);
    xcb_free_gc(c, context);
    xcb_free_pixmap(c, pixmap);
    return id;
}

} // namespace Kovrel
