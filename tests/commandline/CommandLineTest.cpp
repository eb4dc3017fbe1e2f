#include "commandline/CommandLine.h"

#include <gtest/gtest.h>

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
    for (const char* bad : {"a", "a.gif", ".png/x", "png"})
        EXPECT_FALSE(CommandLine::parse({"capture", "fullScreen", "--output", bad}, "/home/me")) << bad;
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

} // namespace Kovrel
