#pragma once

#include "commandline/CommandTable.h"

#include <string>

namespace Kovrel {

// What the program says of its commands. Any thread.
namespace CommandHelp {

// "capture MODE [--rect X,Y,W,H] …".
std::string synopsis(const CommandSpec& command);

// Everything it can do, for `kovrel --help` and after a usage error.
std::string usage();
// Of one command, with its options.
std::string usage(const CommandSpec& command);

// The synopses in the language of manual pages.
std::string manualSynopsis();

} // namespace CommandHelp

} // namespace Kovrel
