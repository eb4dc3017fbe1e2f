#include "commandline/Completion.h"

#include "commandline/CommandTable.h"

namespace Kovrel {

namespace {

using Words = std::vector<std::string>;

constexpr const char* files = "<files>";
constexpr const char* settings = "<settings>";

Words firstWords()
{
    Words words;
    for (const CommandSpec& command : CommandTable::commands())
        words.emplace_back(command.name);
    words.insert(words.end(), {"--background", "--help", "--version"});
    return words;
}

Words optionsOf(const CommandSpec& command)
{
    Words words;
    for (const OptionSpec& option : command.options)
        words.push_back(std::string("--") + option.name);
    words.emplace_back("--help");
    return words;
}

// The value of the option that stands before, if it takes one.
const OptionSpec* optionBefore(const CommandSpec& command, const std::string& word)
{
    if (!word.starts_with("--"))
        return nullptr;
    const OptionSpec* option = CommandTable::findOption(command, word.substr(2));
    return option && option->value ? option : nullptr;
}

size_t operandsBeforeLast(const CommandSpec& command, const Words& words)
{
    size_t count = 0;
    for (size_t i = 1; i + 1 < words.size(); ++i)
        if (!words[i].starts_with("--") && !optionBefore(command, words[i - 1]))
            ++count;
    return count;
}

Words operandsAt(const CommandSpec& command, size_t place, const Words& words)
{
    if (place < command.pathOperands)
        return {files};
    if (place == 0 && !command.choices.empty())
        return command.choices;
    if (std::string(command.name) != "preferences")
        return {};
    if (place == 0)
        return {"list", "get", "set", "reset"};
    return place == 1 && words[1] != "list" ? Words{settings} : Words{};
}

} // namespace

Words Completion::candidates(const Words& words)
{
    if (words.size() < 2)
        return firstWords();
    const CommandSpec* command = CommandTable::find(words.front());
    if (!command)
        return {};
    if (const OptionSpec* option = optionBefore(*command, words[words.size() - 2]))
        return option->isPath ? Words{files} : Words{};
    if (words.back().starts_with("-"))
        return optionsOf(*command);
    return operandsAt(*command, operandsBeforeLast(*command, words), words);
}

} // namespace Kovrel
