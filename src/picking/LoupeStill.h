#pragma once

#include "platform/Display.h"

#include <QImage>

namespace Kovrel {

// A display as it looked when the loupe came up.
struct LoupeStill {
    Display display;
    QImage image; // of all its pixels
};

} // namespace Kovrel
