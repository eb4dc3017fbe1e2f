#pragma once

#include "commandline/Command.h"
#include "history/records/HistoryState.h"
#include "model/CommandAnswer.h"

namespace Kovrel {

// `kovrel history [TERM...] [--kind K] [--app A] [--list L] [--date D] [--json]`. Any thread.
namespace HistoryCommand {

CommandAnswer run(const Command& command, const HistoryState& history);

// The captures that the command asks for, newest first.
QList<HistoryEntry> narrowed(const Command& command, const HistoryState& history);

} // namespace HistoryCommand

} // namespace Kovrel
