#include "commandline/CommandLine.h"

#include "commandline/CommandTable.h"

#include <algorithm>
#include <span>

namespace Kovrel {

namespace {

using Error = std::optional<std::string>;

bool contains(const std::vector<std::string>& list, const std::string& text)
{
    return std::ranges::find(list, text) != list.end();
}

std::string absolute(const std::string& path, const std::string& directory)
{
    return path.starts_with('/') ? path : directory + '/' + path;
}

std::string listed(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : " and ") + word;
    return text;
}

Error operandError(const CommandSpec& spec, const Command& command)
{
    const size_t count = command.operands.size();
    if (count < spec.minOperands || count > spec.maxOperands)
        return std::string("wrong number of arguments for ") + spec.name;
    if (count > 0 && !spec.choices.empty() && !contains(spec.choices, command.operands.front()))
        return std::string("unknown ") + spec.choiceName + " \"" + command.operands.front() + "\"";
    return spec.operandError ? spec.operandError(command) : std::nullopt;
}

Error optionError(const OptionSpec& option, const CommandSpec& spec, const Command& command)
{
    const std::string name = std::string("--") + option.name;
    if (!command.has(option.name)) {
        if (!option.isRequired)
            return std::nullopt;
        return std::string(spec.name) + " takes " + name + (option.value ? std::string(" ") + option.value : "");
    }
    if (!option.onlyWith.empty() && !contains(option.onlyWith, command.operands.front()))
        return name + " goes with the modes " + listed(option.onlyWith);
    if (option.insteadOf && command.has(option.insteadOf))
        return std::string("--") + option.insteadOf + " and " + name + " exclude each other";
    if (option.makesSense && !option.makesSense(command.options.at(option.name)))
        return name + " takes " + option.takes;
    return std::nullopt;
}

Error semanticError(const CommandSpec& spec, const Command& command)
{
    if (const Error error = operandError(spec, command))
        return error;
    for (const OptionSpec& option : spec.options)
        if (const Error error = optionError(option, spec, command))
            return error;
    return std::nullopt;
}

class Parser {
public:
    Parser(const CommandSpec& spec, std::span<const std::string> arguments, const std::string& directory)
        : m_spec(spec), m_arguments(arguments), m_directory(directory)
    {
        m_command.name = spec.name;
    }

    std::expected<Command, std::string> parse()
    {
        while (m_next < m_arguments.size())
            if (const Error error = takeArgument())
                return std::unexpected(*error);
        if (m_asksForHelp)
            return Command{.name = "help", .operands = {m_spec.name}};
        if (const Error error = semanticError(m_spec, m_command))
            return std::unexpected(*error);
        return m_command;
    }

private:
    Error takeArgument()
    {
        const std::string& argument = m_arguments[m_next++];
        if (m_onlyOperands || !argument.starts_with("--"))
            return takeOperand(argument);
        if (argument == "--")
            m_onlyOperands = true;
        else if (argument == "--help")
            m_asksForHelp = true;
        else
            return takeOption(argument.substr(2));
        return std::nullopt;
    }

    Error takeOperand(const std::string& argument)
    {
        const bool isPath = m_command.operands.size() < m_spec.pathOperands;
        if (isPath && isLost(argument))
            return lostPath(argument);
        m_command.operands.push_back(isPath ? absolute(argument, m_directory) : argument);
        return std::nullopt;
    }

    bool isLost(const std::string& path) const { return m_directory.empty() && !path.starts_with('/'); }

    static std::string lostPath(const std::string& path)
    {
        return "the working folder is gone: \"" + path + "\" leads nowhere";
    }

    // "--name value" or "--name=value".
    Error takeOption(const std::string& text)
    {
        const size_t equals = text.find('=');
        const std::string name = text.substr(0, equals);
        const OptionSpec* option = CommandTable::findOption(m_spec, name);
        if (!option)
            return "unknown option --" + name;
        const bool takesValue = option->value;
        std::string value;
        if (equals != std::string::npos)
            value = text.substr(equals + 1);
        else if (takesValue && m_next < m_arguments.size())
            value = m_arguments[m_next++];
        if (takesValue == value.empty())
            return "--" + name + (takesValue ? " needs a value" : " takes no value");
        if (option->isPath && isLost(value))
            return lostPath(value);
        m_command.options[name] = option->isPath ? absolute(value, m_directory) : value;
        return std::nullopt;
    }

    const CommandSpec& m_spec;
    std::span<const std::string> m_arguments;
    const std::string& m_directory;
    Command m_command;
    size_t m_next = 0;
    bool m_onlyOperands = false;
    bool m_asksForHelp = false;
};

bool isUrl(const std::string& argument)
{
    return argument.starts_with("kovrel:") || argument.starts_with("file:");
}

// What stands alone instead of a command.
std::optional<Command> standingAlone(const std::string& argument)
{
    if (argument == "--background")
        return Command{.name = "start", .options = {{"background", ""}}};
    if (argument == "--help" || argument == "-h" || argument == "help")
        return Command{.name = "help"};
    if (argument == "--version")
        return Command{.name = "version"};
    return std::nullopt;
}

} // namespace

std::vector<std::string> Command::arguments() const
{
    if (name == "start")
        return has("background") ? std::vector<std::string>{"--background"} : std::vector<std::string>{};
    if (name == "url")
        return operands;
    std::vector<std::string> all{name};
    for (const auto& [option, value] : options)
        all.push_back("--" + option + (value.empty() ? "" : "=" + value));
    if (!operands.empty())
        all.push_back("--");
    all.insert(all.end(), operands.begin(), operands.end());
    return all;
}

std::expected<Command, std::string> CommandLine::parse(const std::vector<std::string>& arguments,
                                                       const std::string& directory)
{
    if (arguments.empty())
        return Command{.name = "start"};
    if (std::ranges::all_of(arguments, isUrl))
        return Command{.name = "url", .operands = arguments};
    if (arguments.size() == 1)
        if (auto command = standingAlone(arguments.front()))
            return *command;
    const CommandSpec* spec = CommandTable::find(arguments.front());
    if (!spec)
        return std::unexpected("unknown command \"" + arguments.front() + "\"");
    return Parser(*spec, std::span(arguments).subspan(1), directory).parse();
}

bool CommandLine::runsWithoutInstance(const Command& command)
{
    const CommandSpec* spec = CommandTable::find(command.name);
    if (!spec)
        return false;
    if (spec->runs == CommandSpec::Runs::byOperands)
        return !command.operands.empty();
    return spec->runs != CommandSpec::Runs::inInstance;
}

bool CommandLine::leavesWindow(const Command& command)
{
    const CommandSpec* spec = CommandTable::find(command.name);
    return spec && spec->leavesWindow && !command.has("output");
}

} // namespace Kovrel
