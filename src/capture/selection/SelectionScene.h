#pragma once

#include "overlay/OverlayScene.h"
#include "platform/Display.h"

#include <optional>

namespace Kovrel {

// What the displays show of a selection.
namespace SelectionScene {

// What is selected at a moment. Root pixels.
struct Moment {
    bool isWindowMode = false;
    std::optional<QRect> area;
    bool isDragging = false;
    std::vector<QRect> windows; // those under the pointer
    QRegion windowsInSight;     // of them, what nothing else covers
    std::optional<QPoint> pointer;
    bool showsHint = false;
};

OverlayScene of(const Display& display, const Moment& moment);

} // namespace SelectionScene

} // namespace Kovrel
