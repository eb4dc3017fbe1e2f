#include "platform/x11/windows/X11WindowImage.h"

#include "imaging/WindowCorners.h"
#include "platform/x11/X11DamageWatch.h"
#include "platform/x11/X11Screen.h"
#include "platform/x11/windows/KWinDecoration.h"
#include "platform/x11/windows/X11Frame.h"
#include "platform/x11/windows/X11WindowList.h"

#include <QRegion>

#include <xcb/composite.h>
#include <xcb/shape.h>

namespace Kovrel {

namespace {

// The server keeps a window's pixels apart from the screen's for as long as this lives.
class Redirection {
public:
    Redirection(X11Connection& connection, xcb_window_t window) : m_connection(connection), m_window(window)
    {
        xcb_composite_redirect_window(m_connection.handle(), m_window, XCB_COMPOSITE_REDIRECT_AUTOMATIC);
    }

    ~Redirection()
    {
        xcb_composite_unredirect_window(m_connection.handle(), m_window, XCB_COMPOSITE_REDIRECT_AUTOMATIC);
        xcb_flush(m_connection.handle());
    }

    Redirection(const Redirection&) = delete;
    Redirection& operator=(const Redirection&) = delete;

private:
    X11Connection& m_connection;
    xcb_window_t m_window;
};

// The parts of a top-level window that its shape leaves, relative to its outer corner; no value when it is a plain
// rectangle. The pixels beside the shape are undefined.
std::optional<QRegion> shapeOf(X11Connection& x, const X11Frame& frame)
{
    if (!x.has(xcb_shape_id))
        return {};
    const auto extents = x.reply(xcb_shape_query_extents_reply, xcb_shape_query_extents(x.handle(), frame.topLevel));
    if (!extents || !extents->bounding_shaped)
        return {};
    const auto shape = x.reply(xcb_shape_get_rectangles_reply,
                               xcb_shape_get_rectangles(x.handle(), frame.topLevel, XCB_SHAPE_SK_BOUNDING));
    if (!shape)
        return {};
    QRegion region;
    const xcb_rectangle_t* rectangles = xcb_shape_get_rectangles_rectangles(shape.get());
    for (int index = 0; index < xcb_shape_get_rectangles_rectangles_length(shape.get()); ++index) {
        const xcb_rectangle_t& r = rectangles[index];
        region += QRect(r.x, r.y, r.width, r.height);
    }
    return region;
}

void clear(QImage& image, const QRegion& region)
{
    for (const QRect& rect : region) {
        for (int y = rect.top(); y <= rect.bottom(); ++y) {
            auto* row = reinterpret_cast<QRgb*>(image.scanLine(y)) + rect.left();
            std::fill(row, row + rect.width(), 0u);
        }
    }
}

// Pixels of what is visible of a window, with nothing beside its shape.
QImage asWindow(X11Connection& x, const X11Frame& frame, QImage image)
{
    image.reinterpretAsFormat(QImage::Format_ARGB32_Premultiplied);
    const QRect part = frame.visible.translated(-frame.outer.topLeft());
    if (const auto shape = shapeOf(x, frame))
        clear(image, (QRegion(part) - *shape).translated(-part.topLeft()) & image.rect());
    return image;
}

std::optional<QImage> readPixmap(X11ImageReader& reader, const X11Frame& frame)
{
    X11Connection& x = reader.connection();
    const xcb_pixmap_t pixmap = xcb_generate_id(x.handle());
    if (!x.succeeded(xcb_composite_name_window_pixmap_checked(x.handle(), frame.topLevel, pixmap)))
        return {};
    const auto geometry = x.reply(xcb_get_geometry_reply, xcb_get_geometry(x.handle(), pixmap));
    const QRect part = frame.visible.translated(-frame.outer.topLeft());
    std::optional<QImage> image;
    if (geometry)
        image = reader.read(pixmap, part & QRect(0, 0, geometry->width, geometry->height),
                            geometry->depth == 32 ? X11ImageReader::Alpha::kept : X11ImageReader::Alpha::opaque);
    xcb_free_pixmap(x.handle(), pixmap);
    return image ? std::optional(asWindow(x, frame, *std::move(image))) : std::nullopt;
}

std::optional<QImage> readAfterRedirecting(X11ImageReader& reader, const X11Frame& frame)
{
    X11Connection& x = reader.connection();
    const X11DamageWatch watch(x, frame.topLevel);
    const Redirection redirection(x, frame.topLevel);
    // The server maps the window anew. Its window manager paints the frame and its owner the rest, each when it gets to
    // it; until then there are pixels of other windows.
    watch.waitUntilDrawn(frame.client.translated(-frame.outer.topLeft()));
    return readPixmap(reader, frame);
}

bool isUncovered(X11Connection& x, xcb_window_t window, const QRect& pixels)
{
    const auto windows = X11WindowList::read(x);
    if (!windows)
        return false;
    for (const auto& [info, instance, className] : *windows) {
        if (info.id == window)
            return true;
        if (info.isOnScreen && info.pixelRect.intersects(pixels))
            return false;
    }
    return false;
}

// The pixels of the screen, where nothing is in front of the window.
std::optional<QImage> readFromScreen(X11ImageReader& reader, xcb_window_t window, const X11Frame& frame)
{
    X11Connection& x = reader.connection();
    const xcb_screen_t& screen = x.screen();
    if (!QRect(0, 0, screen.width_in_pixels, screen.height_in_pixels).contains(frame.visible) ||
        !isUncovered(x, window, frame.visible))
        return {};
    X11Screen(reader).waitUntilRepainted();
    auto image = reader.read(x.root(), frame.visible, X11ImageReader::Alpha::opaque);
    return image ? std::optional(asWindow(x, frame, *std::move(image))) : std::nullopt;
}

std::optional<QImage> readOwnPixels(X11ImageReader& reader, const X11Frame& frame)
{
    // A compositor has redirected every window already, and the server those with alpha.
    if (auto image = readPixmap(reader, frame))
        return image;
    return readAfterRedirecting(reader, frame);
}

std::optional<QImage> readWithDecoration(X11ImageReader& reader, xcb_window_t window, X11Frame frame)
{
    if (auto image = KWinDecoration::read(reader, window, frame))
        return image;
    if (auto image = readFromScreen(reader, window, frame))
        return image;
    frame.visible = frame.client; // rather no decoration than pixels of something else
    return readOwnPixels(reader, frame);
}

std::optional<QImage> readPixels(X11ImageReader& reader, xcb_window_t window, const X11Frame& frame)
{
    if (KWinDecoration::isDrawnApart(reader.connection(), window, frame))
        return readWithDecoration(reader, window, frame);
    return readOwnPixels(reader, frame);
}

} // namespace

GrabbedImage X11WindowImage::grab(X11ImageReader& reader, xcb_window_t window)
{
    X11Connection& x = reader.connection();
    if (x.isAlive() && !x.has(xcb_composite_id))
        return std::unexpected(GrabFailure::notSupported);
    if (x.isAlive() && !x.hasPlainPixels())
        return std::unexpected(GrabFailure::otherPixels);
    const auto frame = X11Frame::of(x, window);
    std::optional<QImage> image;
    if (frame && frame->isViewable && !frame->visible.isEmpty())
        image = readPixels(reader, window, *frame);
    if (image) {
        WindowCorners::cut(*image);
        return *std::move(image);
    }
    return std::unexpected(x.isAlive() ? GrabFailure::windowGone : GrabFailure::noDisplay);
}

} // namespace Kovrel
