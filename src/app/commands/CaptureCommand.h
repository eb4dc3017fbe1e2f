#pragma once

#include "capture/CaptureRequest.h"
#include "commandline/Command.h"
#include "model/CommandAnswer.h"
#include "platform/Reply.h"

namespace Kovrel {

// `kovrel capture MODE …`.
namespace CaptureCommand {

// What the command asks for; its reply answers the command. `obstacle` says why a capture that is refused was, where
// that is not for want of an account.
CaptureRequest request(const Command& command, Reply<CommandAnswer> reply, const QString& obstacle);

// What the command line prints of a capture. `waited`: the files are on disk, so that their place can be told.
CommandAnswer answer(const CaptureOutcome& outcome, bool waited, bool asJson);

} // namespace CaptureCommand

} // namespace Kovrel
