#include "app/foundation/CommandJob.h"

#include "commandline/Command.h"

#include <exception>

namespace Kovrel {

namespace {

CommandAnswer answerOf(const std::function<CommandAnswer()>& job)
{
    try {
        return job();
    } catch (const std::bad_alloc&) {
        return {.exitCode = CommandLine::failed, .error = "there is not enough memory"};
    } catch (const std::exception& error) {
        return {.exitCode = CommandLine::failed, .error = error.what()};
    }
}

} // namespace

void CommandJob::run(Foundation& foundation, Lane lane, std::function<CommandAnswer()> job, Reply<CommandAnswer> reply)
{
    foundation.workers.submit(lane, [loop = &foundation.loop, job = std::move(job), reply = std::move(reply)] {
        loop->post([reply, answer = answerOf(job)] { reply(answer); });
    });
}

} // namespace Kovrel
