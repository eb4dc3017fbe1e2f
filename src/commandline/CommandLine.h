#pragma once

#include <expected>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace Kovrel {

// What `kovrel` was asked to do.
struct Command {
    // "start" without arguments, "url" for kovrel://…, else the first argument.
    std::string name;
    std::vector<std::string> operands;
    // Options by their name without dashes; flags hold an empty text.
    std::map<std::string, std::string> options;

    bool has(const std::string& option) const { return options.contains(option); }

    // The arguments that parse to this command again, for handing it on.
    std::vector<std::string> arguments() const;

    bool operator==(const Command&) const = default;
};

// The command line of Kovrel.
namespace CommandLine {

// Everything it can do, for `--help` and after a usage error.
std::string usage();

// Arguments without the program's name. Paths become absolute against `directory`. The error is one line for people.
std::expected<Command, std::string> parse(const std::vector<std::string>& arguments, const std::string& directory);

// Whether the command can be run in a process of its own, without a display, when Kovrel is not running.
bool runsWithoutInstance(const Command& command);

enum ExitCode { done = 0, nothingThere = 1, usageError = 2, refused = 3, failed = 4 };

} // namespace CommandLine

} // namespace Kovrel
