#pragma once

#include "app/foundation/Foundation.h"
#include "model/CommandAnswer.h"
#include "platform/Reply.h"

#include <functional>

namespace Kovrel {

namespace CommandJob {

// Runs a command's work on a worker. Answers on the main thread, also when the work throws. The job owns what it uses.
void run(Foundation& foundation, Lane lane, std::function<CommandAnswer()> job, Reply<CommandAnswer> reply);

} // namespace CommandJob

} // namespace Kovrel
