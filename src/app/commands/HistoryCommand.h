#pragma once

#include "commandline/Command.h"
#include "history/records/HistoryState.h"
#include "history/text/HistoryTexts.h"
#include "model/CommandAnswer.h"

namespace Kovrel {

// `kovrel history [TERM...] [--kind K] [--app A] [--list L] [--date D] [--json]`. Any thread.
namespace HistoryCommand {

// What there is to be found.
struct History {
    HistoryState state;
    HistoryTexts texts;
    QDateTime now;
};

CommandAnswer run(const Command& command, const History& history);

} // namespace HistoryCommand

} // namespace Kovrel
