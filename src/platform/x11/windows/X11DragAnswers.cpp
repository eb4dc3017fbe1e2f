#include "platform/x11/windows/X11DragAnswers.h"

#include "platform/x11/X11SelectionAnswer.h"

#include <QCoreApplication>
#include <QMimeData>

#include <private/qdnd_p.h>

namespace Kovrel {

namespace {

constexpr size_t requestHead = 32; // bytes of a request that aren't the property's, at most
constexpr uint8_t typeMask = 0x7f; // without the mark of events that a program has sent

} // namespace

X11DragAnswers::X11DragAnswers(std::unique_ptr<X11Connection> connection) : m_connection(std::move(connection))
{
    QCoreApplication::instance()->installNativeEventFilter(this);
}

bool X11DragAnswers::nativeEventFilter(const QByteArray&, void* message, qintptr*)
{
    if (const QPointer<QDrag> current = QDragManager::self()->object())
        m_drag = current;
    const auto* const event = static_cast<const xcb_generic_event_t*>(message);
    if (!m_drag || (event->response_type & typeMask) != XCB_SELECTION_REQUEST)
        return false;
    return answer(*reinterpret_cast<const xcb_selection_request_event_t*>(event));
}

// False: the toolkit does it.
bool X11DragAnswers::answer(const xcb_selection_request_event_t& request)
{
    if (request.time != XCB_CURRENT_TIME || request.selection != m_connection->atom("XdndSelection"))
        return false;
    const QString format = QString::fromLatin1(m_connection->atomName(request.target));
    if (!m_drag->mimeData()->hasFormat(format))
        return false;
    const QByteArray bytes = m_drag->mimeData()->data(format);
    xcb_connection_t* const x = m_connection->handle();
    if (size_t(bytes.size()) + requestHead > size_t(xcb_get_maximum_request_length(x)) * 4)
        return false;
    xcb_change_property(x, XCB_PROP_MODE_REPLACE, request.requestor, request.property, request.target, 8,
                        uint32_t(bytes.size()), bytes.constData());
    X11SelectionAnswer::send(*m_connection, request, request.property);
    xcb_flush(x);
    return true;
}

} // namespace Kovrel
