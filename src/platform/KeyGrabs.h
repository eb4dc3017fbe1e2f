#pragma once

#include "model/KeyCombo.h"

#include <functional>
#include <optional>

namespace Kovrel {

// Key combinations that reach us whichever program has the focus. Main thread.
class KeyGrabs {
public:
    using GrabID = quint32;

    virtual ~KeyGrabs() = default;

    // No value where the desktop or another program keeps the combination to itself.
    virtual std::optional<GrabID> grab(KeyCombo combo, std::function<void()> onPress) = 0;
    virtual void release(GrabID grab) = 0;
};

} // namespace Kovrel
