#include "platform/DisplayScales.h"

#include <gtest/gtest.h>

namespace Kovrel {

TEST(DisplayScales, SurviveTheWayThroughText)
{
    DisplayList displays(3);
    displays[0].name = "DP-1";
    displays[1].name = "odd=name";
    displays[1].scale = 1.25;
    displays[2].name = "HDMI";
    displays[2].scale = 5.0 / 3.0;
    const auto scaleOf = DisplayScales::read(DisplayScales::write(displays));
    for (const Display& display : displays)
        EXPECT_EQ(scaleOf(display.name), display.scale);
    EXPECT_EQ(scaleOf("unknown"), 1);
}

TEST(DisplayScales, RubbishIsNoScale)
{
    for (const QString text : {"", ";;", "A", "A=", "A=x", "A=0", "A=-2", "=2;"})
        EXPECT_EQ(DisplayScales::read(text)("A"), 1) << text.toStdString();
}

} // namespace Kovrel
