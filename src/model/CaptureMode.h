#pragma once

#include "model/RawStrings.h"

namespace Kovrel {

// What a capture takes. The order is used as a small integer, the raw strings are persisted.
enum class CaptureMode {
    area,       // drag out a rectangle
    window,     // pick one window, or a tiled group
    fullScreen, // the whole display under the pointer
    lastArea,   // the rectangle of the last area capture again
    ocrRegion,  // an area whose text is wanted, not its picture
    timed,      // count down, then the full screen
};

template <>
struct RawStrings<CaptureMode> {
    static constexpr std::array table{
        std::pair{CaptureMode::area, "area"},
        std::pair{CaptureMode::window, "window"},
        std::pair{CaptureMode::fullScreen, "fullScreen"},
        std::pair{CaptureMode::lastArea, "lastArea"},
        std::pair{CaptureMode::ocrRegion, "ocrRegion"},
        std::pair{CaptureMode::timed, "timed"},
    };
};

} // namespace Kovrel
