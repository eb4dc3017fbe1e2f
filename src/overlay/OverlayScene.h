#pragma once

#include "overlay/OverlayDecoration.h"

#include <QRegion>

#include <vector>

namespace Kovrel {

// What one display shows of a session, as values: two scenes tell what must be painted anew. Root pixels.
struct OverlayScene {
    QRegion lit; // shown without shade
    std::vector<OverlayDecoration> decorations;

    bool operator==(const OverlayScene&) const = default;
};

} // namespace Kovrel
