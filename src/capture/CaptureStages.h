#pragma once

#include "capture/CaptureRun.h"
#include "model/Geometry.h"

#include <QCoroTask>

#include <memory>
#include <optional>

namespace Kovrel {

// What the flow of a run asks of the coordinator, and tells it on the way. Main thread.
class CaptureStages {
public:
    using Run = std::shared_ptr<CaptureRun>;

    virtual ~CaptureStages() = default;

    // Our own windows step aside; returns when the screen shows it.
    virtual QCoro::Task<> hideChromeAndRepaint(Run run) = 0;
    // From now on a request waits for its turn: pixels are on their way.
    virtual void leaveInteractivePhase(const Run& run) = 0;
    // Pixels are in hand, or will never be: the next run may start. An area becomes the last one.
    virtual void selectionEnded(const Run& run, std::optional<DisplayArea> area = {}) = 0;
    // The run ends without a capture; a message says why it failed, none that it was the user's wish.
    virtual void abandon(const Run& run, const QString& message) = 0;
};

} // namespace Kovrel
