#pragma once

#include <map>
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

namespace CommandLine {

// What a command's process ends with.
enum ExitCode { done = 0, nothingThere = 1, usageError = 2, refused = 3, failed = 4 };

} // namespace CommandLine

} // namespace Kovrel
