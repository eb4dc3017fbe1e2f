#pragma once

#include "platform/x11/X11Connection.h"

namespace Kovrel {

// The answer to a program that has asked for a selection. Stateless; the thread of the connection.
namespace X11SelectionAnswer {

// What was asked for lies in a property of the requestor's window; XCB_NONE: it can't be had.
void send(const X11Connection& connection, const xcb_selection_request_event_t& request, xcb_atom_t property);

} // namespace X11SelectionAnswer

} // namespace Kovrel
