#include "platform/x11/X11Connection.h"

#include <QDeadlineTimer>
#include <QSysInfo>

#include <csignal>
#include <poll.h>
#include <sys/socket.h>

#include <xcb/composite.h>
#include <xcb/damage.h>
#include <xcb/randr.h>
#include <xcb/render.h>
#include <xcb/shape.h>
#include <xcb/shm.h>
#include <xcb/xfixes.h>

namespace Kovrel {

namespace {

// xcb looks whether the server is there before it writes, but the server may die in between: that raises SIGPIPE, which
// would end the program. The failed write says it too.
void ignoreBrokenPipes()
{
    struct sigaction current = {};
    if (sigaction(SIGPIPE, nullptr, &current) == 0 && current.sa_handler == SIG_DFL)
        std::signal(SIGPIPE, SIG_IGN);
}

xcb_screen_t* screenWithNumber(xcb_connection_t* connection, int number)
{
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    while (screens.rem > 1 && number-- > 0)
        xcb_screen_next(&screens);
    return screens.data;
}

} // namespace

X11Connection::X11Connection(const QByteArray& displayName)
{
    ignoreBrokenPipes();
    m_connection = xcb_connect(displayName.isEmpty() ? nullptr : displayName.constData(), &m_screenNumber);
    if (!isAlive())
        return;
    m_screen = screenWithNumber(m_connection, m_screenNumber);
    m_root = m_screen->root;
    agreeOnVersions();
}

X11Connection::~X11Connection()
{
    xcb_disconnect(m_connection);
}

bool X11Connection::isAlive() const
{
    return xcb_connection_has_error(m_connection) == 0;
}

bool X11Connection::isLocal() const
{
    sockaddr_storage address = {};
    socklen_t length = sizeof address;
    return isAlive() &&
           getsockname(xcb_get_file_descriptor(m_connection), reinterpret_cast<sockaddr*>(&address), &length) == 0 &&
           address.ss_family == AF_UNIX;
}

bool X11Connection::hasPlainPixels() const
{
    if (!isAlive() || (m_screen->root_depth != 24 && m_screen->root_depth != 32))
        return false;
    const xcb_setup_t* setup = xcb_get_setup(m_connection);
    const bool isLittle = setup->image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST;
    if (isLittle != (QSysInfo::ByteOrder == QSysInfo::LittleEndian))
        return false;
    for (auto formats = xcb_setup_pixmap_formats_iterator(setup); formats.rem > 0; xcb_format_next(&formats)) {
        if (formats.data->depth == m_screen->root_depth)
            return formats.data->bits_per_pixel == 32;
    }
    return false;
}

bool X11Connection::has(xcb_extension_t& extension) const
{
    const xcb_query_extension_reply_t* data = xcb_get_extension_data(m_connection, &extension);
    return data && data->present;
}

uint8_t X11Connection::firstEvent(xcb_extension_t& extension) const
{
    return has(extension) ? xcb_get_extension_data(m_connection, &extension)->first_event : 0;
}

// The server refuses the requests of an extension to clients that did not ask for its version.
void X11Connection::agreeOnVersions()
{
    for (xcb_extension_t* extension :
         {&xcb_randr_id, &xcb_xfixes_id, &xcb_damage_id, &xcb_composite_id, &xcb_shm_id, &xcb_shape_id, &xcb_render_id})
        xcb_prefetch_extension_data(m_connection, extension);
    if (has(xcb_randr_id))
        reply(xcb_randr_query_version_reply, xcb_randr_query_version(m_connection, 1, 5));
    if (has(xcb_xfixes_id))
        reply(xcb_xfixes_query_version_reply, xcb_xfixes_query_version(m_connection, 5, 0));
    if (has(xcb_damage_id))
        reply(xcb_damage_query_version_reply, xcb_damage_query_version(m_connection, 1, 1));
    if (has(xcb_composite_id))
        reply(xcb_composite_query_version_reply, xcb_composite_query_version(m_connection, 0, 4));
    if (has(xcb_render_id))
        reply(xcb_render_query_version_reply, xcb_render_query_version(m_connection, 0, 11));
}

bool X11Connection::hasCompositor()
{
    const auto selection = atom("_NET_WM_CM_S" + QByteArray::number(m_screenNumber));
    const auto answer = reply(xcb_get_selection_owner_reply, xcb_get_selection_owner(m_connection, selection));
    return answer && answer->owner != XCB_NONE;
}

xcb_atom_t X11Connection::atom(const QByteArray& name)
{
    const auto known = m_atoms.find(name);
    if (known != m_atoms.end())
        return known->second;
    const auto answer =
        reply(xcb_intern_atom_reply, xcb_intern_atom(m_connection, false, uint16_t(name.size()), name.constData()));
    return answer ? m_atoms.emplace(name, answer->atom).first->second : xcb_atom_t(XCB_ATOM_NONE);
}

QByteArray X11Connection::atomName(xcb_atom_t atom) const
{
    const auto answer = reply(xcb_get_atom_name_reply, xcb_get_atom_name(m_connection, atom));
    return answer ? QByteArray(xcb_get_atom_name_name(answer.get()), xcb_get_atom_name_name_length(answer.get()))
                  : QByteArray();
}

void X11Connection::holdServer()
{
    if (m_holds++ == 0)
        xcb_grab_server(m_connection);
}

void X11Connection::letServerGo()
{
    if (--m_holds > 0)
        return;
    xcb_ungrab_server(m_connection);
    xcb_flush(m_connection);
}

bool X11Connection::succeeded(xcb_void_cookie_t cookie) const
{
    const X11Reply<xcb_generic_error_t> error(xcb_request_check(m_connection, cookie));
    return !error && isAlive();
}

uint8_t X11Connection::errorOf(xcb_void_cookie_t cookie) const
{
    const X11Reply<xcb_generic_error_t> error(xcb_request_check(m_connection, cookie));
    return error ? error->error_code : 0;
}

void X11Connection::roundTrip() const
{
    reply(xcb_get_input_focus_reply, xcb_get_input_focus(m_connection));
}

X11Reply<xcb_generic_event_t> X11Connection::nextEvent(std::chrono::milliseconds patience) const
{
    const QDeadlineTimer deadline(patience);
    xcb_flush(m_connection);
    for (;;) {
        X11Reply<xcb_generic_event_t> event(xcb_poll_for_event(m_connection));
        const bool isError = event && event->response_type == 0;
        if ((event && !isError) || !isAlive())
            return event;
        if (isError)
            continue;
        if (deadline.hasExpired())
            return nullptr;
        pollfd descriptor{xcb_get_file_descriptor(m_connection), POLLIN, 0};
        poll(&descriptor, 1, int(deadline.remainingTime()));
    }
}

} // namespace Kovrel
