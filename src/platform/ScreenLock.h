#pragma once

#include "platform/Observers.h"

namespace Kovrel {

// The lock of the screen. Main thread.
class ScreenLock {
public:
    virtual ~ScreenLock() = default;
    // Called whenever the screen gets locked, as far as the desktop tells.
    virtual Subscription onLock(std::function<void()> callback) = 0;
    // Whether it is locked, as far as the desktop has told since we listen.
    virtual bool isLocked() const = 0;
};

} // namespace Kovrel
