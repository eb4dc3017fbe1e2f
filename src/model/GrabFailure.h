#pragma once

#include <QString>

namespace Kovrel {

// Why pixels could not be had.
enum class GrabFailure {
    noDisplay,    // no display server, or none of the rectangle lies on a display
    refused,      // the desktop does not give pixels to us
    windowGone,   // closed or minimised in the meantime
    notSupported, // this desktop has no way to give them
    otherPixels,  // the display's pixels are of another form than we read
    serverGone,   // the connection to the display server is lost
    noMemory,
};

// In the words that follow a colon, for people.
QString reason(GrabFailure failure);

} // namespace Kovrel
