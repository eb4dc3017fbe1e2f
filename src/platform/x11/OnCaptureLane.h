#pragma once

#include "platform/MainLoop.h"
#include "platform/Reply.h"
#include "platform/Workers.h"

#include <memory>

namespace Kovrel {

// Runs a job on the capture lane and answers with what it returns. Called on the main thread; the job must own what
// it uses.
template <class T, class Job>
void onCaptureLane(MainLoop& loop, Workers& workers, Job job, Reply<T> reply)
{
    workers.submit(Lane::capture, [&loop, job = std::move(job), reply = std::move(reply)]() mutable {
        auto answer = std::make_shared<T>(job());
        loop.post([answer, reply = std::move(reply)] { reply(std::move(*answer)); });
    });
}

} // namespace Kovrel
