#include "platform/desktop/ThreadWorkers.h"

#include "platform/Guarded.h"

#include <pthread.h>

#include <algorithm>
#include <system_error>
#include <utility>

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
    case Lane::clipboard:
        return "kovrel.copy";
    case Lane::paste:
        return "kovrel.paste";
    case Lane::editorSave:
        return "kovrel.editsave";
    case Lane::shutter:
        return "kovrel.shutter";
    case Lane::codes:
        return "kovrel.codes";
    case Lane::utility:
        return "kovrel.utility";
    case Lane::visionOCR:
        return "kovrel.ocr";
    case Lane::ocrFiles:
        return "kovrel.ocrfiles";
    case Lane::history:
        return "kovrel.history";
    case Lane::thumbnails:
        return "kovrel.thumbs";
    case Lane::search:
        return "kovrel.search";
    case Lane::searchIndex:
        return "kovrel.words";
    case Lane::cardFace:
        return "kovrel.cardface";
    case Lane::packages:
        return "kovrel.packages";
    }
    return "kovrel.worker";
}

} // namespace

bool ThreadWorkers::finish(std::chrono::milliseconds patience)
{
    const auto deadline = std::chrono::steady_clock::now() + patience;
    const auto queues = std::exchange(m_queues, {});
    for (const auto& [lane, queue] : queues) {
        const std::lock_guard locked(queue->lock);
        queue->isClosing = true;
        queue->wake.notify_one();
    }
    bool allDone = true;
    for (const auto& [lane, queue] : queues) {
        std::unique_lock locked(queue->lock);
        const bool isDone = queue->ended.wait_until(locked, deadline, [&isDone = queue->isDone] { return isDone; });
        locked.unlock();
        if (isDone)
            queue->thread.join();
        else
            queue->thread.detach();
        allDone &= isDone;
    }
    return allDone;
}

// A lane is there once its thread is: where none can be had, whoever submits hears it.
std::shared_ptr<ThreadWorkers::Queue> ThreadWorkers::queueOf(Lane lane)
{
    if (const auto known = m_queues.find(lane); known != m_queues.end())
        return known->second;
    const auto queue = std::make_shared<Queue>();
    queue->thread = std::thread([queue, lane] { work(queue, lane); });
    m_queues.emplace(lane, queue);
    return queue;
}

// Null: the job is to be done at once.
std::shared_ptr<ThreadWorkers::Queue> ThreadWorkers::queueIfAny(Lane lane)
{
    try {
        return queueOf(lane);
    } catch (const std::system_error&) {
        if (m_withoutThread == WithoutThread::refused)
            throw;
        return nullptr;
    }
}

void ThreadWorkers::submit(Lane lane, QualityOfService qos, std::function<void()> job)
{
    const auto queue = queueIfAny(lane);
    if (!queue)
        return Guarded::job(std::move(job), Guarded::logReason)();
    const std::lock_guard locked(queue->lock);
    const auto place = std::ranges::upper_bound(queue->jobs, qos, std::greater(), &Job::qos);
    queue->jobs.insert(place, {qos, std::move(job)});
    queue->wake.notify_one();
}

void ThreadWorkers::work(const std::shared_ptr<Queue>& queue, Lane lane)
{
    pthread_setname_np(pthread_self(), threadName(lane));
    std::unique_lock locked(queue->lock);
    for (;;) {
        queue->wake.wait(locked, [&queue] { return !queue->jobs.empty() || queue->isClosing; });
        if (queue->jobs.empty())
            break;
        auto job = std::move(queue->jobs.front().work);
        queue->jobs.pop_front();
        locked.unlock();
        Guarded::job(std::move(job), Guarded::logReason)();
        locked.lock();
    }
    queue->isDone = true;
    queue->ended.notify_one();
}

} // namespace Kovrel
