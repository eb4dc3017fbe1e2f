#pragma once

#include "commandline/Command.h"
#include "model/CommandAnswer.h"
#include "platform/Reply.h"

#include <functional>
#include <string>

namespace Kovrel {

// One use of a command.
struct Invocation {
    Command command;
    quint64 requestID = 0; // what `CommandHandler::cancel` takes; 0: can't be cancelled by it
    bool isFromMenu = false;
};

// What runs a command of the CommandTable. Main thread.
struct CommandHandler {
    std::string command;
    // Answers exactly once.
    std::function<void(Invocation, Reply<CommandAnswer>)> run;
    // Nobody waits for the answer any more; null where that changes nothing.
    std::function<void(quint64 requestID)> cancel = {};
    // Whether menus and hotkeys may use it now; null: always.
    std::function<bool()> isAvailable = {};
};

} // namespace Kovrel
