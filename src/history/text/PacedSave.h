#pragma once

#include "platform/Lifeline.h"
#include "platform/MainLoop.h"
#include "platform/Workers.h"

#include <functional>
#include <vector>

namespace Kovrel {

// Writes a state some time after it has changed, so that changes in a row are written together. Main thread.
class PacedSave {
public:
    using Write = std::function<bool()>; // on the lane; false: it failed, and is to be done again

    // `makeWrite` makes the writing of the state as it is then.
    PacedSave(MainLoop& loop, Workers& workers, Lane lane, std::function<Write()> makeWrite);
    ~PacedSave();
    PacedSave(const PacedSave&) = delete;
    PacedSave& operator=(const PacedSave&) = delete;

    // The state has changed, and may wait so long. One that may wait less brings the writing forward.
    void schedule(MainLoop::Milliseconds delay);

    // While one is open, nothing is written.
    void beginBatch() { ++m_batchDepth; }

    void endBatch();
    // Writes what has changed at once.
    void writeNow();

private:
    void setTimer();

    MainLoop& m_loop;
    Workers& m_workers;
    Lane m_lane;
    std::function<Write()> m_makeWrite;
    bool m_hasChanged = false;
    std::chrono::microseconds m_due{0};
    MainLoop::TimerID m_timer = 0;
    int m_batchDepth = 0;
    Lifeline m_lifeline;
};

} // namespace Kovrel
