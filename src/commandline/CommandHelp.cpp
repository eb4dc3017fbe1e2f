#include "commandline/CommandHelp.h"

#include <algorithm>

namespace Kovrel {

namespace {

constexpr size_t optionColumn = 28;

std::string shown(const OptionSpec& option)
{
    return std::string("--") + option.name + (option.value ? std::string(" ") + option.value : "");
}

// An option together with those that can stand in its place.
std::string shownGroup(const CommandSpec& command, const OptionSpec& option)
{
    std::string text = shown(option);
    for (const OptionSpec& other : command.options)
        if (other.insteadOf && std::string(other.insteadOf) == option.name)
            text += " | " + shown(other);
    return option.isRequired ? text : "[" + text + "]";
}

std::string optionLine(const OptionSpec& option)
{
    std::string text = "  " + shown(option);
    text.resize(std::max(text.size() + 1, optionColumn), ' ');
    return text + option.meaning + "\n";
}

std::string escapedForManual(const std::string& text)
{
    std::string escaped;
    for (const char c : text)
        escaped += c == '-' ? std::string("\\-") : std::string(1, c);
    return escaped;
}

// The name in bold, and in the next line what it takes.
std::string manualLines(const CommandSpec& command)
{
    const std::string name = command.name;
    const std::string rest = CommandHelp::synopsis(command).substr(name.size());
    return ".B kovrel " + escapedForManual(name) + "\n" +
           (rest.empty() ? rest : escapedForManual(rest.substr(1)) + "\n");
}

} // namespace

std::string CommandHelp::synopsis(const CommandSpec& command)
{
    std::string text = command.name;
    if (*command.operands)
        text += std::string(" ") + command.operands;
    for (const OptionSpec& option : command.options)
        if (!option.insteadOf)
            text += " " + shownGroup(command, option);
    return text;
}

std::string CommandHelp::usage()
{
    std::string text = "usage: kovrel [--background]\n";
    for (const CommandSpec& command : CommandTable::commands())
        text += "       kovrel " + synopsis(command) + "\n              " + command.meaning + "\n";
    return text + "       kovrel kovrel://\u2026\n       kovrel --help | --version\n";
}

std::string CommandHelp::usage(const CommandSpec& command)
{
    std::string text = "usage: kovrel " + synopsis(command) + "\n       " + command.meaning + "\n";
    for (const OptionSpec& option : command.options)
        text += optionLine(option);
    return text;
}

std::string CommandHelp::manualSynopsis()
{
    std::string text = ".B kovrel\n[\\-\\-background]\n";
    for (const CommandSpec& command : CommandTable::commands())
        text += ".br\n" + manualLines(command);
    return text;
}

} // namespace Kovrel
