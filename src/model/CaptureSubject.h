#pragma once

#include "model/Geometry.h"

namespace Kovrel {

// The shape of the window inside a window capture.
struct CaptureSubject {
    Rect rect; // image pixels, origin top-left
    double cornerRadius = 0;
    bool operator==(const CaptureSubject&) const = default;
};

} // namespace Kovrel
