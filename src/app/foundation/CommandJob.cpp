#include "app/foundation/CommandJob.h"

#include "commandline/Command.h"
#include "platform/Guarded.h"
#include "platform/ReplyFromWorker.h"

namespace Kovrel {

void CommandJob::run(Foundation& foundation, Lane lane, std::function<CommandAnswer()> job, Reply<CommandAnswer> reply)
{
    const auto failure = [](const QString& reason) {
        return CommandAnswer{.exitCode = CommandLine::failed, .error = reason};
    };
    replyFromWorker<CommandAnswer>(foundation.loop, foundation.workers, lane, Guarded::job(std::move(job), failure),
                                   std::move(reply));
}

} // namespace Kovrel
