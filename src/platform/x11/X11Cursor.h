#pragma once

#include "platform/Pointer.h"
#include "platform/x11/X11Connection.h"

namespace Kovrel {

// The pointer as it looks at this moment. No value when the server does not tell.
namespace X11Cursor {

std::optional<PointerImage> read(X11Connection& connection);

}

} // namespace Kovrel
