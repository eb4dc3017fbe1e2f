#include "pins/PinPlacement.h"

#include <gtest/gtest.h>

namespace Kovrel {

using namespace PinPlacement;

namespace {

const PinGeometry::Picture picture{.size = {400, 300}};

const DisplayList displays{
    {.id = 1,
     .frame = {0, 0, 1000, 800},
     .visibleFrame = {0, 0, 1000, 760},
     .pixelRect = {0, 0, 1000, 800},
     .isPrimary = true},
    {.id = 2, .frame = {1000, 0, 500, 400}, .visibleFrame = {}, .pixelRect = {1000, 0, 1000, 800}, .scale = 2},
};

} // namespace

TEST(PinPlacementTest, ComesInTheMiddleOfWhatIsFreeEachALittleOff)
{
    EXPECT_EQ(spawn(displays[0], picture, 0).frame.pixels, QRectF(300, 270, 400, 300));
    EXPECT_EQ(spawn(displays[0], picture, 2).frame.pixels, QRectF(348, 318, 400, 300));
    EXPECT_EQ(spawn(displays[0], picture, 8).frame.pixels, QRectF(300, 270, 400, 300));
    EXPECT_EQ(spawn(displays[1], picture, 0).frame.pixels, QRectF(1100, 100, 800, 600));
}

TEST(PinPlacementTest, IsFoundAgainWhateverBecomesOfTheDisplays)
{
    const Place place = kept({displays[1], {{1100, 100, 800, 600}, 1}});

    struct Case {
        const char* what;
        DisplayList now;
        quint32 display;
        QRectF pixels;
    };

    DisplayList moved = displays;
    moved[1].pixelRect = {1000, 300, 1000, 800};
    DisplayList rescaled = displays;
    rescaled[1].scale = 1;
    DisplayList smaller = displays;
    smaller[1].pixelRect = {1000, 0, 150, 100};
    const Case cases[] = {
        {"nothing", displays, 2, {1100, 100, 800, 600}},       {"moved", moved, 2, {1100, 400, 800, 600}},
        {"another scale", rescaled, 2, {1100, 100, 400, 300}}, {"gone", {displays[0]}, 1, {100, 100, 400, 300}},
        {"smaller", smaller, 2, {1030, 0, 800, 600}},
    };
    for (const Case& c : cases) {
        const auto standing = restored(c.now, place, picture);
        ASSERT_TRUE(standing) << c.what;
        EXPECT_EQ(standing->display.id, c.display) << c.what;
        EXPECT_EQ(standing->frame.pixels, c.pixels) << c.what;
    }
    EXPECT_FALSE(restored({}, place, picture));
    const Place atTheEdge = kept({displays[1], {{1900, 700, 800, 600}, 1}});
    EXPECT_EQ(restored({displays[0]}, atTheEdge, picture)->frame.pixels, QRectF(600, 500, 400, 300))
        << "whole, where it did not stand by itself";
    const Place betweenPixels = kept({displays[0], {{300.5, 270.5, 400, 300}, 1}});
    EXPECT_EQ(restored(displays, betweenPixels, picture)->frame.pixels, QRectF(301, 271, 400, 300))
        << "where its window stood";
}

TEST(PinPlacementTest, KeepsItsSizeInPointsOnADisplayOfAnotherScale)
{
    const PinGeometry::Frame dropped{{1200, 100, 400, 300}, 1};
    EXPECT_EQ(displayOf(displays, dropped.pixels)->id, 2u);
    EXPECT_EQ(displayOf(displays, {-5000, 0, 10, 10})->id, 1u);
    EXPECT_FALSE(displayOf({}, dropped.pixels));
    const Standing standing = settled(displays[1], dropped, picture, {1300, 150});
    EXPECT_EQ(standing.frame.pixels, QRectF(1100, 50, 800, 600));
    EXPECT_EQ(settled(displays[1], standing.frame, picture, {1, 1}).frame, standing.frame) << "it is there already";
}

} // namespace Kovrel
