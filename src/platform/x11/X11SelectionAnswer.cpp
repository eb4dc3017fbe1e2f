#include "platform/x11/X11SelectionAnswer.h"

namespace Kovrel {

void X11SelectionAnswer::send(const X11Connection& connection, const xcb_selection_request_event_t& request,
                              xcb_atom_t property)
{
    xcb_selection_notify_event_t notice{};
    notice.response_type = XCB_SELECTION_NOTIFY;
    notice.time = request.time;
    notice.requestor = request.requestor;
    notice.selection = request.selection;
    notice.target = request.target;
    notice.property = property;
    xcb_send_event(connection.handle(), false, request.requestor, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&notice));
}

} // namespace Kovrel
