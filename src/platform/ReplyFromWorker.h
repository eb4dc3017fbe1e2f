#pragma once

#include "platform/MainLoop.h"
#include "platform/Reply.h"
#include "platform/Workers.h"

#include <memory>
#include <optional>
#include <type_traits>

namespace Kovrel {

// Runs a job on a worker lane and answers on the main thread with what it returns. Called there too; the job owns what
// it uses, and does not throw (see `Guarded`): whoever waits would wait for ever.
template <class T, class Job>
void replyFromWorker(MainLoop& loop, Workers& workers, Lane lane, QualityOfService qos, Job job, Reply<T> reply)
{
    static_assert(std::is_nothrow_invocable_r_v<T, Job>);
    auto answer = std::make_shared<std::optional<T>>(); // here, where a shortage of memory keeps nobody waiting
    workers.submit(lane, qos, [&loop, answer, job = std::move(job), reply = std::move(reply)]() mutable {
        answer->emplace(job());
        loop.post([answer, reply = std::move(reply)] { reply(*std::move(*answer)); });
    });
}

template <class T, class Job>
void replyFromWorker(MainLoop& loop, Workers& workers, Lane lane, Job job, Reply<T> reply)
{
    replyFromWorker<T>(loop, workers, lane, QualityOfService::userInitiated, std::move(job), std::move(reply));
}

} // namespace Kovrel
