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

} // namespace Kovrel
