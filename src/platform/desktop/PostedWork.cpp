#include "platform/desktop/PostedWork.h"

namespace Kovrel {

// By its name: a function object would be made by one thread and read by the other, both outside of the lock.
void PostedWork::post(std::function<void()> work)
{
    {
        const std::lock_guard locked(m_lock);
        m_work.push_back(std::move(work));
    }
    QMetaObject::invokeMethod(this, "runNext", Qt::QueuedConnection);
}

void PostedWork::runNext()
{
    next()();
}

std::function<void()> PostedWork::next()
{
    const std::lock_guard locked(m_lock);
    auto next = std::move(m_work.front());
    m_work.pop_front();
    return next;
}

} // namespace Kovrel
