#pragma once

#include "commandline/Command.h"
#include "model/ColorPick.h"
#include "model/CommandAnswer.h"

#include <optional>

namespace Kovrel {

// `kovrel color FILE X Y` and what `kovrel pick-color` answers. Any thread.
namespace ColorCommand {

// Blocks for as long as reading the file takes.
CommandAnswer run(const Command& command);

// A colour as the command's format has it; without one there is nothing.
CommandAnswer answer(const Command& command, const PickedColor& hex);

} // namespace ColorCommand

} // namespace Kovrel
