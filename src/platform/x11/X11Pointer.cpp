#include "platform/x11/X11Pointer.h"

#include "platform/Guarded.h"
#include "platform/ReplyFromWorker.h"
#include "platform/x11/X11Cursor.h"

namespace Kovrel {

namespace {

std::optional<QPoint> pixelUnderPointer(X11Connection& x)
{
    const auto answer = x.reply(xcb_query_pointer_reply, xcb_query_pointer(x.handle(), x.root()));
    if (!answer || !answer->same_screen)
        return {};
    return QPoint(answer->root_x, answer->root_y);
}

std::optional<PointerPosition> positionAt(const DisplayList& displays, std::optional<QPoint> pixel)
{
    const Display* display = pixel ? displayAtPixel(displays, *pixel) : nullptr;
    if (!display)
        return {};
    return PointerPosition{*pixel, display->toPoint(*pixel), display->id};
}

} // namespace

X11Pointer::X11Pointer(MainLoop& loop, Workers& workers, std::shared_ptr<X11Connection> connection,
                       const Displays& displays)
    : m_loop(loop), m_workers(workers), m_connection(std::move(connection)), m_displays(displays)
{
}

void X11Pointer::position(Reply<std::optional<PointerPosition>> reply)
{
    const auto job = [x = m_connection] { return pixelUnderPointer(*x); };
    replyFromWorker<std::optional<QPoint>>(
        m_loop, m_workers, Lane::capture, Guarded::orElse(job, std::nullopt),
        [&displays = m_displays, reply = std::move(reply)](std::optional<QPoint> pixel) {
            reply(positionAt(displays.all(), pixel));
        });
}

void X11Pointer::image(Reply<std::optional<PointerImage>> reply)
{
    const auto job = [x = m_connection] { return X11Cursor::read(*x); };
    replyFromWorker<std::optional<PointerImage>>(m_loop, m_workers, Lane::capture, Guarded::orElse(job, std::nullopt),
                                                 std::move(reply));
}

} // namespace Kovrel
