#include "screenshottool/ToolOptions.h"

#include <gtest/gtest.h>

namespace Kovrel {

TEST(ToolOptions, ReadsEveryOption)
{
    const auto area = ToolOptions::parse({"-x", "-C", "-R", "-10,20,300,400", "-t", "tiff", "/tmp/a b.tiff"});
    ASSERT_TRUE(area);
    EXPECT_EQ(
        *area,
        (ToolOptions{.rect = Rect{-10, 20, 300, 400}, .window = {}, .drawsPointer = true, .path = "/tmp/a b.tiff"}));
    const auto window = ToolOptions::parse({"-l", "4294967295", "-o", "-x", "-t", "png", "w"});
    ASSERT_TRUE(window);
    EXPECT_EQ(*window, (ToolOptions{.rect = {}, .window = 4294967295, .format = ImageFormat::png, .path = "w"}));
    EXPECT_TRUE(ToolOptions::parse({"-w", "p"})->picksWindow);
}

TEST(ToolOptions, RefusesWhatMakesNoSense)
{
    const QStringList cases[] = {
        {},          {"-x"},           {"-R", "1,2,3", "f"},   {"-R", "1,2,3.5,4", "f"}, {"-R", "1,2,0,4", "f"},
        {"-R"},      {"-l", "0", "f"}, {"-l", "x", "f"},       {"-t", "bmp", "f"},       {"-z", "f"},
        {"f", "-x"}, {"f", "g"},       {"-w", "-l", "1", "f"},
    };
    for (const QStringList& arguments : cases)
        EXPECT_FALSE(ToolOptions::parse(arguments)) << arguments.join(' ').toStdString();
}

} // namespace Kovrel
