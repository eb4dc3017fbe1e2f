#pragma once

#include "commandline/Command.h"

#include <expected>
#include <string>
#include <vector>

namespace Kovrel {

// The command line of Kovrel, as the CommandTable describes it.
namespace CommandLine {

// Arguments without the program's name. Paths become absolute against `directory`; where that is empty, because it is
// gone, only absolute ones make sense. The error is one line for people.
// `kovrel --help` is the command "help", `kovrel COMMAND --help` the same with the command as its operand.
std::expected<Command, std::string> parse(const std::vector<std::string>& arguments, const std::string& directory);

// Whether the command can be run in a process of its own, without a display, when Kovrel is not running.
bool runsWithoutInstance(const Command& command);

// Whether something of it is on the screen when it is done.
bool leavesWindow(const Command& command);

} // namespace CommandLine

} // namespace Kovrel
