#pragma once

#include "platform/Observers.h"

#include <functional>
#include <optional>

namespace Kovrel {

// Whether the desktop's user wants programs to be dark. Main thread.
class Appearance {
public:
    virtual ~Appearance() = default;

    // None where the desktop does not say: then the toolkit's own palette is right.
    virtual std::optional<bool> isDark() const = 0;

    // May come soon after the start, for some desktops answer late.
    virtual Subscription onChange(std::function<void()> callback) = 0;
};

} // namespace Kovrel
