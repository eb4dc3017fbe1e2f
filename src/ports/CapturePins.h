#pragma once

#include "model/CaptureResult.h"

namespace Kovrel {

// Captures that float above everything. Main thread.
class CapturePins {
public:
    virtual ~CapturePins() = default;

    virtual void pin(CaptureResult result) = 0;
};

} // namespace Kovrel
