#include "picking/ColorText.h"

#include <gtest/gtest.h>

namespace Kovrel {

TEST(ColorText, WritesColoursAsStyleSheetsDo)
{
    struct Case {
        const char* hex;
        const char* rgb;
        const char* hsl;
        const char* oklch;
    };

    const Case cases[] = {
        {"#000000", "rgb(0, 0, 0)", "hsl(0, 0%, 0%)", "oklch(0% 0 0)"},
        {"#FFFFFF", "rgb(255, 255, 255)", "hsl(0, 0%, 100%)", "oklch(100% 0 0)"},
        {"#808080", "rgb(128, 128, 128)", "hsl(0, 0%, 50%)", "oklch(60% 0 0)"},
        {"#FF0000", "rgb(255, 0, 0)", "hsl(0, 100%, 50%)", "oklch(62.8% 0.258 29.2)"},
        {"#00FF00", "rgb(0, 255, 0)", "hsl(120, 100%, 50%)", "oklch(86.6% 0.295 142.5)"},
        {"#0000FF", "rgb(0, 0, 255)", "hsl(240, 100%, 50%)", "oklch(45.2% 0.313 264.1)"},
        {"#663399", "rgb(102, 51, 153)", "hsl(270, 50%, 40%)", "oklch(44% 0.16 303.4)"},
        {"#FF0001", "rgb(255, 0, 1)", "hsl(0, 100%, 50%)", "oklch(62.8% 0.258 29.2)"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(ColorText::of(c.hex, ColorNotation::hex), QString(c.hex));
        EXPECT_EQ(ColorText::of(c.hex, ColorNotation::rgb), QString(c.rgb));
        EXPECT_EQ(ColorText::of(c.hex, ColorNotation::hsl), QString(c.hsl));
        EXPECT_EQ(ColorText::of(c.hex, ColorNotation::oklch), QString(c.oklch));
    }
}

TEST(ColorText, EachNotationFollowsTheOneBefore)
{
    ColorNotation notation = ColorNotation::hex;
    for (const ColorNotation next :
         {ColorNotation::rgb, ColorNotation::hsl, ColorNotation::oklch, ColorNotation::hex}) {
        notation = ColorText::next(notation);
        EXPECT_EQ(notation, next);
    }
}

} // namespace Kovrel
