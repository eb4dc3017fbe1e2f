#include "tests/support/FakeMainLoop.h"

namespace Kovrel::Testing {

MainLoop::TimerID FakeMainLoop::after(Milliseconds delay, std::function<void()> work)
{
    m_timers.emplace(std::pair{m_now + delay, ++m_lastTimer}, std::move(work));
    return m_lastTimer;
}

void FakeMainLoop::cancel(TimerID timer)
{
    std::erase_if(m_timers, [timer](const auto& entry) { return entry.first.second == timer; });
}

void FakeMainLoop::post(std::function<void()> work)
{
    const std::lock_guard lock(m_lock);
    m_posted.push_back(std::move(work));
}

void FakeMainLoop::runPosted()
{
    for (;;) {
        std::function<void()> work;
        {
            const std::lock_guard lock(m_lock);
            if (m_posted.empty())
                return;
            work = std::move(m_posted.front());
            m_posted.pop_front();
        }
        work();
    }
}

void FakeMainLoop::advance(Milliseconds duration)
{
    const auto end = m_now + duration;
    runPosted();
    while (!m_timers.empty() && m_timers.begin()->first.first <= end) {
        const auto due = m_timers.extract(m_timers.begin());
        m_now = std::max(m_now, due.key().first);
        due.mapped()();
        runPosted();
    }
    m_now = end;
}

} // namespace Kovrel::Testing
