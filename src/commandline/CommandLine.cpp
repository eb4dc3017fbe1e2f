#include "commandline/CommandLine.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <span>

namespace Kovrel {

namespace {

struct OptionRule {
    const char* name;
    bool takesValue;
    bool isPath = false;
};

struct CommandRule {
    const char* name;
    std::vector<OptionRule> options;
    size_t minOperands;
    size_t maxOperands;
    const char* synopsis;
    const char* meaning;
    bool operandsArePaths = false;
};

const std::vector<CommandRule>& rules()
{
    static const std::vector<CommandRule> all{
        {"capture",
         {{"rect", true}, {"save", false}, {"output", true, true}, {"copy", false}, {"wait", false}, {"json", false}},
         1,
         1,
         "capture MODE [--rect X,Y,W,H] [--save | --output FILE] [--copy] [--wait] [--json]",
         "MODE: area | window | fullScreen | lastArea | ocrRegion | timed"},
        {"text",
         {{"raw", false}, {"json", false}},
         1,
         1,
         "text FILE [--raw] [--json]",
         "the text in a picture; --raw does without dictionaries",
         true},
        {"codes", {{"json", false}}, 1, 1, "codes FILE [--json]", "the QR codes in a picture", true},
        {"annotate",
         {{"annotations", true, true},
          {"backdrop", true, true},
          {"subject", true},
          {"scale", true},
          {"output", true, true}},
         1,
         1,
         "annotate IMAGE [--annotations A.json] [--backdrop B.json] [--subject X,Y,W,H,RADIUS] [--scale S] --output "
         "FILE",
         "a picture with its marks, on its backdrop",
         true},
        {"preferences", {}, 1, 3, "preferences list | get KEY | set KEY VALUE | reset KEY", "the settings"},
        {"sign-in", {{"local", false}}, 0, 0, "sign-in --local", "use the account kept on this computer"},
        {"sign-out", {}, 0, 0, "sign-out", "forget the account"},
        {"quit", {}, 0, 0, "quit", "end the running program"},
    };
    return all;
}

constexpr std::array captureModes{"area", "window", "fullScreen", "lastArea", "ocrRegion", "timed"};
constexpr std::array outputExtensions{"png", "jpeg", "jpg", "heic", "heif", "tiff", "tif"};

std::string lower(std::string text)
{
    std::ranges::transform(text, text.begin(), [](unsigned char c) { return char(std::tolower(c)); });
    return text;
}

template <class List>
bool contains(const List& list, const std::string& text)
{
    return std::ranges::any_of(list, [&](const char* candidate) { return text == candidate; });
}

std::string absolute(const std::string& path, const std::string& directory)
{
    return path.starts_with('/') ? path : directory + '/' + path;
}

std::string fileExtension(const std::string& path)
{
    const std::string name = path.substr(path.rfind('/') + 1);
    const size_t dot = name.rfind('.');
    return dot == std::string::npos ? std::string() : lower(name.substr(dot + 1));
}

// Numbers with commas between them; nothing when there are not `count` or one is beyond all screens.
std::optional<std::vector<double>> numbers(const std::string& text, size_t count)
{
    std::vector<double> all;
    const char* at = text.data();
    const char* const end = at + text.size();
    while (all.size() < count) {
        if (!all.empty() && (at == end || *at++ != ','))
            return std::nullopt;
        double number = 0;
        const auto [next, error] = std::from_chars(at, end, number);
        if (error != std::errc() || !(std::abs(number) < 1e6))
            return std::nullopt;
        all.push_back(number);
        at = next;
    }
    return at == end ? std::optional(all) : std::nullopt;
}

// "X,Y,W,H" with a width and height above 0.
bool isRectangle(const std::string& text)
{
    const auto four = numbers(text, 4);
    return four && (*four)[2] > 0 && (*four)[3] > 0;
}

bool isSubject(const std::string& text)
{
    const auto five = numbers(text, 5);
    return five && (*five)[2] > 0 && (*five)[3] > 0 && (*five)[4] >= 0;
}

bool isScale(const std::string& text)
{
    const auto one = numbers(text, 1);
    return one && one->front() >= 0.25 && one->front() <= 16;
}

std::optional<std::string> outputError(const Command& command)
{
    if (command.has("output") && !contains(outputExtensions, fileExtension(command.options.at("output"))))
        return "--output takes a file ending in .png, .jpeg, .heic or .tiff";
    return std::nullopt;
}

std::optional<std::string> captureError(const Command& command)
{
    const std::string& mode = command.operands.front();
    if (!contains(captureModes, mode))
        return "unknown capture mode \"" + mode + "\"";
    if (command.has("rect") && mode != "area" && mode != "ocrRegion")
        return "--rect goes with the modes area and ocrRegion";
    if (command.has("rect") && !isRectangle(command.options.at("rect")))
        return "--rect takes X,Y,W,H in points, with a width and height above 0";
    if (command.has("save") && command.has("output"))
        return "--save and --output exclude each other";
    return outputError(command);
}

std::optional<std::string> annotateError(const Command& command)
{
    if (!command.has("output"))
        return "annotate takes --output FILE";
    if (command.has("subject") && !isSubject(command.options.at("subject")))
        return "--subject takes X,Y,W,H,RADIUS in pixels, with a width and height above 0";
    if (command.has("scale") && !isScale(command.options.at("scale")))
        return "--scale takes the pixels to a point, 0.25 to 16";
    return outputError(command);
}

std::optional<std::string> preferencesError(const Command& command)
{
    static const std::map<std::string, size_t> operandCounts{{"list", 1}, {"get", 2}, {"set", 3}, {"reset", 2}};
    const auto verb = operandCounts.find(command.operands.front());
    if (verb == operandCounts.end() || verb->second != command.operands.size())
        return "preferences takes list, get KEY, set KEY VALUE or reset KEY";
    return std::nullopt;
}

std::optional<std::string> semanticError(const Command& command)
{
    if (command.name == "capture")
        return captureError(command);
    if (command.name == "annotate")
        return annotateError(command);
    if (command.name == "preferences")
        return preferencesError(command);
    if (command.name == "sign-in" && !command.has("local"))
        return "sign-in takes --local";
    return std::nullopt;
}

class Parser {
public:
    Parser(const CommandRule& rule, std::span<const std::string> arguments, const std::string& directory)
        : m_rule(rule), m_arguments(arguments), m_directory(directory)
    {
        m_command.name = rule.name;
    }

    std::expected<Command, std::string> parse()
    {
        while (m_next < m_arguments.size())
            if (const auto error = takeArgument())
                return std::unexpected(*error);
        const size_t count = m_command.operands.size();
        if (count < m_rule.minOperands || count > m_rule.maxOperands)
            return std::unexpected(std::string("wrong number of arguments for ") + m_rule.name);
        if (const auto error = semanticError(m_command))
            return std::unexpected(*error);
        return m_command;
    }

private:
    std::optional<std::string> takeArgument()
    {
        const std::string& argument = m_arguments[m_next++];
        if (m_onlyOperands || !argument.starts_with("--")) {
            m_command.operands.push_back(m_rule.operandsArePaths ? absolute(argument, m_directory) : argument);
        } else if (argument == "--") {
            m_onlyOperands = true;
        } else {
            return takeOption(argument.substr(2));
        }
        return std::nullopt;
    }

    // "--name value" or "--name=value".
    std::optional<std::string> takeOption(const std::string& text)
    {
        const size_t equals = text.find('=');
        const std::string name = text.substr(0, equals);
        const auto option =
            std::ranges::find(m_rule.options, name, [](const OptionRule& o) { return std::string(o.name); });
        if (option == m_rule.options.end())
            return "unknown option --" + name;
        std::string value;
        if (equals != std::string::npos)
            value = text.substr(equals + 1);
        else if (option->takesValue && m_next < m_arguments.size())
            value = m_arguments[m_next++];
        if (option->takesValue == value.empty())
            return "--" + name + (option->takesValue ? " needs a value" : " takes no value");
        m_command.options[name] = option->isPath ? absolute(value, m_directory) : value;
        return std::nullopt;
    }

    const CommandRule& m_rule;
    std::span<const std::string> m_arguments;
    const std::string& m_directory;
    Command m_command;
    size_t m_next = 0;
    bool m_onlyOperands = false;
};

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

std::string CommandLine::usage()
{
    std::string text = "usage: kovrel [--background]\n";
    for (const CommandRule& rule : rules())
        text += std::string("       kovrel ") + rule.synopsis + "\n              " + rule.meaning + "\n";
    return text + "       kovrel kovrel://…\n       kovrel --help | --version\n";
}

std::expected<Command, std::string> CommandLine::parse(const std::vector<std::string>& arguments,
                                                       const std::string& directory)
{
    if (arguments.empty())
        return Command{.name = "start"};
    const std::string& first = arguments.front();
    if (first.starts_with("kovrel:") && arguments.size() == 1)
        return Command{.name = "url", .operands = {first}};
    if (arguments.size() == 1) {
        if (first == "--background")
            return Command{.name = "start", .options = {{"background", ""}}};
        if (first == "--help" || first == "-h" || first == "help")
            return Command{.name = "help"};
        if (first == "--version")
            return Command{.name = "version"};
    }
    const auto rule = std::ranges::find(rules(), first, [](const CommandRule& r) { return std::string(r.name); });
    if (rule == rules().end())
        return std::unexpected("unknown command \"" + first + "\"");
    return Parser(*rule, std::span(arguments).subspan(1), directory).parse();
}

bool CommandLine::runsWithoutInstance(const Command& command)
{
    return contains(std::array{"annotate", "codes", "preferences", "sign-in", "sign-out", "text"}, command.name);
}

} // namespace Kovrel
