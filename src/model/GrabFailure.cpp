#include "model/GrabFailure.h"

namespace Kovrel {

QString reason(GrabFailure failure)
{
    switch (failure) {
    case GrabFailure::noDisplay:
        return "nothing of it is on a display";
    case GrabFailure::refused:
        return "the desktop does not give its pixels";
    case GrabFailure::windowGone:
        return "there is no such window on the screen";
    case GrabFailure::notSupported:
        return "the display server can't do that";
    case GrabFailure::otherPixels:
        return "the display has no 24-bit colours, which captures need";
    case GrabFailure::serverGone:
        return "the display server is gone";
    case GrabFailure::noMemory:
        return "there is not enough memory";
    }
    return {};
}

} // namespace Kovrel
