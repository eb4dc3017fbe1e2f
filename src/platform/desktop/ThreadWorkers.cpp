#include "platform/desktop/ThreadWorkers.h"

#include <pthread.h>

namespace Kovrel {

namespace {

// As the threads are called in a debugger; the kernel takes 15 characters.
const char* threadName(Lane lane)
{
    switch (lane) {
    case Lane::capture:
        return "kovrel.capture";
    case Lane::save:
        return "kovrel.save";
    case Lane::editorSave:
        return "kovrel.editsave";
    case Lane::utility:
        return "kovrel.utility";
    }
    return "kovrel.worker";
}

} // namespace

void ThreadWorkers::finish()
{
    for (auto& [lane, queue] : m_queues) {
        {
            const std::lock_guard locked(queue->lock);
            queue->isClosing = true;
        }
        queue->wake.notify_one();
    }
    for (auto& [lane, queue] : m_queues)
        queue->thread.join();
    m_queues.clear();
}

void ThreadWorkers::submit(Lane lane, std::function<void()> job)
{
    auto& queue = m_queues[lane];
    if (!queue) {
        queue = std::make_unique<Queue>();
        queue->thread = std::thread([&queue = *queue, lane] { work(queue, lane); });
    }
    {
        const std::lock_guard locked(queue->lock);
        queue->jobs.push_back(std::move(job));
    }
    queue->wake.notify_one();
}

void ThreadWorkers::work(Queue& queue, Lane lane)
{
    pthread_setname_np(pthread_self(), threadName(lane));
    std::unique_lock locked(queue.lock);
    for (;;) {
        queue.wake.wait(locked, [&queue] { return !queue.jobs.empty() || queue.isClosing; });
        if (queue.jobs.empty())
            return;
        auto job = std::move(queue.jobs.front());
        queue.jobs.pop_front();
        locked.unlock();
        job();
        job = nullptr;
        locked.lock();
    }
}

} // namespace Kovrel
