#include "history/PendingWrites.h"

namespace Kovrel {

void PendingWrites::whenSettled(QUuid id, std::function<void()> callback)
{
    wait({[this, id] { return !contains(id); }, std::move(callback)});
}

void PendingWrites::whenAllSettled(std::function<void()> callback)
{
    wait({[this] { return m_counts.isEmpty(); }, std::move(callback)});
}

void PendingWrites::wait(Waiter waiter)
{
    if (waiter.isOver())
        waiter.callback();
    else
        m_waiters.push_back(std::move(waiter));
}

// Whoever waits is called later: a coroutine may be about to end here.
void PendingWrites::end(QUuid id)
{
    if (--m_counts[id] > 0)
        return;
    m_counts.remove(id);
    for (Waiter& waiter : std::exchange(m_waiters, {}))
        if (waiter.isOver())
            m_loop.post(std::move(waiter.callback));
        else
            m_waiters.push_back(std::move(waiter));
}

} // namespace Kovrel
