#include "platform/x11/X11ScreenPixels.h"

#include "platform/Guarded.h"
#include "platform/ReplyFromWorker.h"

#include <QGuiApplication>

namespace Kovrel {

namespace {

// The connection on which this program's own windows live; null in a program without windows.
xcb_connection_t* ownWindowsConnection()
{
    const auto* application = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    const auto* native = application ? application->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return native ? native->connection() : nullptr;
}

// The server handles connections in any order: what was asked on that one is done when it answers on that one.
void roundTrip(xcb_connection_t* connection)
{
    std::free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

} // namespace

X11ScreenPixels::X11ScreenPixels(MainLoop& loop, Workers& workers, std::shared_ptr<X11ImageReader> reader)
    : m_loop(loop), m_workers(workers), m_reader(std::move(reader))
{
}

void X11ScreenPixels::grab(QRect rootPixels, PointerOption pointer, Reply<GrabbedImage> reply)
{
    const auto job = [reader = m_reader, rootPixels, pointer] { return X11Screen(*reader).grab(rootPixels, pointer); };
    replyFromWorker<GrabbedImage>(m_loop, m_workers, Lane::capture,
                                  Guarded::orElse(job, std::unexpected(GrabFailure::noMemory)), std::move(reply));
}

void X11ScreenPixels::whenRepainted(Reply<bool> reply)
{
    const auto job = [reader = m_reader, windows = ownWindowsConnection()] {
        if (windows)
            roundTrip(windows);
        return X11Screen(*reader).waitUntilRepainted();
    };
    replyFromWorker<bool>(m_loop, m_workers, Lane::capture, Guarded::orElse(job, false), std::move(reply));
}

} // namespace Kovrel
