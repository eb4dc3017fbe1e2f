#pragma once

#include "platform/MainLoop.h"

#include <deque>
#include <map>
#include <mutex>

namespace Kovrel::Testing {

// Time that stands still until it is advanced. Posted work runs in `runPosted` and `advance`.
class FakeMainLoop : public MainLoop {
public:
    std::chrono::microseconds now() const override { return m_now; }

    QDateTime date() const override { return m_start.addMSecs(m_now.count() / 1000); }

    TimerID after(Milliseconds delay, std::function<void()> work) override;
    void cancel(TimerID timer) override;
    void post(std::function<void()> work) override;

    void setDate(const QDateTime& date) { m_start = date.addMSecs(-m_now.count() / 1000); }

    void runPosted();
    // Runs posted work and every timer that falls due on the way, in order.
    void advance(Milliseconds duration);

    size_t pendingTimers() const { return m_timers.size(); }

private:
    std::chrono::microseconds m_now{0};
    QDateTime m_start{QDate(2024, 3, 5), QTime(9, 7, 3)};
    TimerID m_lastTimer = 0;
    std::map<std::pair<std::chrono::microseconds, TimerID>, std::function<void()>> m_timers;
    std::mutex m_lock;
    std::deque<std::function<void()>> m_posted;
};

} // namespace Kovrel::Testing
