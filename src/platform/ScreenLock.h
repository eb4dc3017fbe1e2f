#pragma once

#include <functional>

namespace Kovrel {

// The lock of the screen. Main thread.
class ScreenLock {
public:
    virtual ~ScreenLock() = default;
    // Called whenever the screen gets locked, as far as the desktop tells.
    virtual void onLock(std::function<void()> callback) = 0;
};

} // namespace Kovrel
