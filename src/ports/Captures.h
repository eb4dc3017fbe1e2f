#pragma once

#include "model/CaptureResult.h"
#include "platform/Observers.h"

#include <functional>

namespace Kovrel {

// The captures that run, as other parts see them. Main thread.
class Captures {
public:
    virtual ~Captures() = default;

    // Called with each finished capture, pixels included, before anything else is done with it.
    virtual Subscription onCaptureFinished(std::function<void(const CaptureResult&)> observer) = 0;
    // Work that wants to bring a window to the front runs now, or when the selection in progress has ended.
    virtual void whenForegroundIsFree(std::function<void()> work) = 0;

    // Brings a capture of the history back as a card. The reply says whether one came; a capture that is on its way
    // does not come twice.
    virtual void presentFromHistory(QUuid id, std::function<void(bool)> reply) = 0;

    // The capture whose card was closed last. The reply says whether there was one.
    virtual void reopenClosed(std::function<void(bool)> reply) = 0;

    // Whether one may capture now; shows what helps when one may not.
    virtual bool ensureScreenAccess() = 0;
    // Closes a showing selection as if Escape had been pressed.
    virtual void cancelAim() = 0;

    virtual bool isCountingDown() const = 0;
    virtual void cancelCountdown() = 0;
};

} // namespace Kovrel
