#pragma once

#include "commandline/Command.h"
#include "model/CommandAnswer.h"

namespace Kovrel {

// `kovrel measure FILE X Y`: the first and the last pixel of the run of like pixels, and its length. Any thread; blocks
// for as long as reading the file takes.
namespace MeasureCommand {

CommandAnswer run(const Command& command);

} // namespace MeasureCommand

} // namespace Kovrel
