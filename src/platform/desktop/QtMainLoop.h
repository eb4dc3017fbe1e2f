#pragma once

#include "platform/MainLoop.h"

#include <QObject>

#include <deque>
#include <map>
#include <mutex>

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
    std::function<void()> nextPosted();

    // A queue whose lock the thread sanitizer knows, as it does not know that of Qt's.
    std::mutex m_lock;
    std::deque<std::function<void()>> m_posted;
    TimerID m_lastTimer = 0;
    std::map<TimerID, std::unique_ptr<QObject>> m_timers;
    QObject m_context; // last: posted work goes with it
};

} // namespace Kovrel
