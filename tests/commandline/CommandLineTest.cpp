#include "commandline/CommandLine.h"
#include "commandline/CommandHelp.h"
#include "commandline/CommandTable.h"
#include "commandline/Completion.h"

#include <gtest/gtest.h>

#include <set>

namespace Kovrel {

TEST(CommandLine, ArgumentsSurviveBeingHandedOn)
{
    const std::vector<std::string> lines[] = {
        {},
        {"--background"},
        {"kovrel://auth-callback?state=1"},
        {"capture", "area", "--rect", "-10,2.5,30,40", "--copy", "--wait", "--json"},
        {"capture", "--output=/a b/c=d.png", "fullScreen"},
        {"codes", "--json", "--", "--dashes.png"},
        {"annotate", "a.png", "--annotations", "a.json", "--subject=1,2,3,4,0.5", "--scale", "1.5", "--output=b.png"},
        {"preferences", "set", "fileNameTemplate", "--", "--dashes"},
        {"preferences", "set", "annotationColorHex.arrow", ""},
        {"sign-in", "--local"},
        {"quit"},
    };
    for (const auto& line : lines) {
        const auto command = CommandLine::parse(line, "/home/me");
        ASSERT_TRUE(command) << command.error();
        const auto again = CommandLine::parse(command->arguments(), "/");
        ASSERT_TRUE(again) << again.error();
        EXPECT_EQ(*again, *command);
    }
}

TEST(CommandLine, PathsBecomeAbsoluteWhereTheCommandWasGiven)
{
    const auto output = [](const char* path) {
        return CommandLine::parse({"capture", "fullScreen", "--output", path}, "/home/me")->options.at("output");
    };
    EXPECT_EQ(output("a.png"), "/home/me/a.png");
    EXPECT_EQ(output("../b.JPG"), "/home/me/../b.JPG");
    EXPECT_EQ(output("/c.heif"), "/c.heif");
    EXPECT_EQ(CommandLine::parse({"codes", "a.png"}, "/home/me")->operands.front(), "/home/me/a.png");
    EXPECT_TRUE(CommandLine::parse({"codes", "/a.png"}, "")) << "the folder is gone";
    EXPECT_FALSE(CommandLine::parse({"codes", "a.png"}, ""));
    EXPECT_FALSE(CommandLine::parse({"capture", "fullScreen", "--output", "a.png"}, ""));
    for (const char* bad : {"a", "a.gif", ".png/x", "png"})
        EXPECT_FALSE(CommandLine::parse({"capture", "fullScreen", "--output", bad}, "/home/me")) << bad;
}

TEST(CommandLine, ATextCaptureRefusesWhatIsDoneWithPictures)
{
    for (const char* option : {"--save", "--output=a.png", "--copy"}) {
        EXPECT_FALSE(CommandLine::parse({"capture", "ocrRegion", option}, "/h")) << option;
        EXPECT_TRUE(CommandLine::parse({"capture", "area", option}, "/h")) << option;
    }
}

TEST(CommandLine, AnnotateRefusesWhatMakesNoSense)
{
    const std::vector<std::string> lines[] = {
        {"annotate", "a.png"},
        {"annotate", "--output=b.png"},
        {"annotate", "a.png", "--output=b.gif"},
        {"annotate", "a.png", "--output=b.png", "--scale=0"},
        {"annotate", "a.png", "--output=b.png", "--scale=2x"},
        {"annotate", "a.png", "--output=b.png", "--subject=1,2,3,4"},
        {"annotate", "a.png", "--output=b.png", "--subject=1,2,0,4,5"},
        {"annotate", "a.png", "--output=b.png", "--subject=1,2,3,4,5,6"},
        {"annotate", "a.png", "--output=b.png", "--subject=1,2,3,4,nan"},
    };
    for (const auto& line : lines)
        EXPECT_FALSE(CommandLine::parse(line, "/home/me")) << line.back();
    const auto command = CommandLine::parse({"annotate", "a.png", "--backdrop", "b.json", "--output", "o.tif"}, "/h");
    ASSERT_TRUE(command) << command.error();
    EXPECT_EQ(command->options.at("backdrop"), "/h/b.json");
    EXPECT_EQ(command->options.at("output"), "/h/o.tif");
}

TEST(CommandLine, HelpIsAskedForBehindACommandToo)
{
    const auto help = CommandLine::parse({"capture", "--rect", "nonsense", "--help"}, "/");
    ASSERT_TRUE(help) << help.error();
    EXPECT_EQ(*help, (Command{.name = "help", .operands = {"capture"}}));
    const std::string text = CommandHelp::usage(*CommandTable::find("capture"));
    for (const char* part : {"usage: kovrel capture MODE ", "[--save | --output FILE]", "\n  --rect X,Y,W,H "})
        EXPECT_NE(text.find(part), std::string::npos) << part << text;
}

TEST(CommandLine, ShellsAreOfferedWhatComesNext)
{
    struct Case {
        std::vector<std::string> words;
        std::vector<std::string> some;
        std::vector<std::string> none;
    };

    const Case cases[] = {
        {{""}, {"capture", "quit", "pick-color", "--background"}, {"area"}},
        {{"capture", ""}, {"area", "ocrRegion"}, {"--rect", "<files>"}},
        {{"capture", "area", "--"}, {"--rect", "--output", "--help"}, {"--raw"}},
        {{"capture", "area", "--output", ""}, {"<files>"}, {"area"}},
        {{"capture", "--save", ""}, {"area"}, {}},
        {{"annotate", "a.png", "--scale", ""}, {}, {"<files>"}},
        {{"text", ""}, {"<files>"}, {}},
        {{"color", ""}, {"<files>"}, {}},
        {{"color", "a.png", ""}, {}, {"<files>"}},
        {{"preferences", ""}, {"reset"}, {"<settings>"}},
        {{"preferences", "get", ""}, {"<settings>"}, {}},
        {{"preferences", "list", ""}, {}, {"<settings>"}},
        {{"nonsense", ""}, {}, {"capture"}},
    };
    for (const Case& c : cases) {
        const auto offered = Completion::candidates(c.words);
        const auto isOffered = [&](const std::string& word) {
            return std::find(offered.begin(), offered.end(), word) != offered.end();
        };
        for (const std::string& word : c.some)
            EXPECT_TRUE(isOffered(word)) << word << " behind " << c.words.front();
        for (const std::string& word : c.none)
            EXPECT_FALSE(isOffered(word)) << word << " behind " << c.words.front();
    }
}

// Two commands, two options of one, or two entries of menus that answer to one name: the second is never reached.
TEST(CommandLine, NamesAreThereOnce)
{
    std::set<std::string> commands;
    std::set<std::string> actions;
    for (const CommandSpec& command : CommandTable::commands()) {
        EXPECT_TRUE(commands.insert(command.name).second) << command.name;
        std::set<std::string> options;
        for (const OptionSpec& option : command.options)
            EXPECT_TRUE(options.insert(option.name).second) << command.name << " --" << option.name;
        for (const MenuEntry& entry : command.menu) {
            EXPECT_TRUE(actions.insert(entry.action).second) << entry.action;
            EXPECT_EQ(entry.arguments.front(), command.name);
        }
    }
}

} // namespace Kovrel
