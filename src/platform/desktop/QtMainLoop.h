#pragma once

#include "platform/MainLoop.h"
#include "platform/desktop/PostedWork.h"

#include <map>

namespace Kovrel {

// The main loop on Qt's event loop of the thread that made it.
class QtMainLoop : public MainLoop {
public:
    std::chrono::microseconds now() const override;
    QDateTime date() const override;
    TimerID after(Milliseconds delay, std::function<void()> work) override;
    void cancel(TimerID timer) override;
    void post(std::function<void()> work) override;

private:
    TimerID m_lastTimer = 0;
    std::map<TimerID, std::unique_ptr<QObject>> m_timers;
    PostedWork m_posted; // last: what waits goes with it
};

} // namespace Kovrel
