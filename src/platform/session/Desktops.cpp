#include "platform/session/Desktops.h"

#include "platform/session/X11Desktop.h"

namespace Kovrel {

std::unique_ptr<Desktop> Desktops::open(MainLoop& loop, Workers& workers)
{
    return std::make_unique<X11Desktop>(loop, workers);
}

} // namespace Kovrel
