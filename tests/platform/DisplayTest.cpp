#include "platform/Display.h"

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

// A 2x display left of and above the 1x primary one.
const DisplayList twoDisplays{
    {.id = 1,
     .name = "main",
     .frame = {0, 0, 1920, 1080},
     .visibleFrame = {},
     .pixelRect = {2560, 400, 1920, 1080},
     .scale = 1,
     .isPrimary = true},
    {.id = 2,
     .name = "left",
     .frame = {-2560, 760, 1280, 720},
     .visibleFrame = {},
     .pixelRect = {0, 0, 2560, 1440},
     .scale = 2,
     .isPrimary = false},
};

} // namespace

TEST(Display, PointsAndPixelsAgreeOnEachDisplay)
{
    struct Case {
        size_t display;
        Rect points;
        QRect pixels;
    };

    const Case cases[] = {
        {0, {0, 0, 1920, 1080}, {2560, 400, 1920, 1080}},
        {0, {10, 1060, 5, 20}, {2570, 400, 5, 20}},
        {1, {-2560, 760, 1280, 720}, {0, 0, 2560, 1440}},
        {1, {-2559.5, 1479, 100.5, 1}, {1, 0, 201, 2}},
    };
    for (const Case& c : cases) {
        const Display& display = twoDisplays[c.display];
        EXPECT_EQ(display.toPixels(c.points), c.pixels);
        EXPECT_EQ(display.toPoints(c.pixels), c.points);
    }
}

TEST(Display, EveryPixelAtAFractionalScaleComesBackAsItself)
{
    const Display display{.id = 3,
                          .name = "f",
                          .frame = {0, 0, 1366 / 1.5, 768 / 1.5},
                          .visibleFrame = {},
                          .pixelRect = {0, 0, 1366, 768},
                          .scale = 1.5,
                          .isPrimary = true};
    for (int x = 0; x < 1366; ++x) {
        const QRect pixel(x, x / 2, 1, 3);
        ASSERT_EQ(display.toPixels(display.toPoints(pixel)), pixel);
    }
}

TEST(Display, FindsDisplaysByPointAndPixel)
{
    EXPECT_EQ(primaryDisplay(twoDisplays)->id, 1u);
    EXPECT_EQ(displayContaining(twoDisplays, {-2000, 800})->id, 2u);
    EXPECT_EQ(displayContaining(twoDisplays, {-1000, 800}), nullptr) << "points between the displays";
    EXPECT_EQ(displayAtPixel(twoDisplays, {2559, 400})->id, 2u);
    EXPECT_EQ(displayAtPixel(twoDisplays, {2560, 400})->id, 1u);
    EXPECT_EQ(displayAtPixel(twoDisplays, {2560, 399}), nullptr);
}

TEST(Display, ARectangleBelongsToTheDisplayThatHoldsMostOfIt)
{
    EXPECT_EQ(displayNearest(twoDisplays, {2500, 500, 100, 10})->id, 2u);
    EXPECT_EQ(displayNearest(twoDisplays, {2520, 500, 100, 10})->id, 1u);
    EXPECT_EQ(displayNearest(twoDisplays, {9000, 0, 10, 10})->id, 1u) << "the primary one";
    EXPECT_EQ(displayNearest({}, {0, 0, 10, 10}), nullptr);
    EXPECT_EQ(rootPixels(twoDisplays, {-2560, 760, 1280, 720}), QRect(0, 0, 2560, 1440));
    EXPECT_EQ(rootPixels(twoDisplays, {-20, 800, 100, 10}), QRect(2540, 670, 100, 10));
    EXPECT_TRUE(rootPixels({}, {0, 0, 10, 10}).isEmpty());
}

TEST(Display, FlippingTwiceIsTheSame)
{
    const Rect rect{-2000, 900, 10, 20};
    EXPECT_EQ(flipped(twoDisplays, rect), (Rect{-2000, 160, 10, 20}));
    EXPECT_EQ(flipped(twoDisplays, flipped(twoDisplays, rect)), rect);
    EXPECT_EQ(flipped({}, rect), (Rect{-2000, -900, 10, 20}));
}

} // namespace Kovrel
