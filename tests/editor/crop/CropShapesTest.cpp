#include "editor/crop/CropShapes.h"

#include <gtest/gtest.h>

namespace Kovrel {

TEST(CropShapesTest, AreAsLargeAsTheCropWasWhereThereIsRoom)
{
    const Rect canvas{0, 0, 400, 300};

    const struct {
        Rect crop;
        double aspect;
        Rect expected;
    } cases[] = {
        {{100, 100, 100, 100}, 4, {50, 125, 200, 50}},   // the same area
        {{100, 100, 200, 50}, 1, {150, 75, 100, 100}},   // and back
        {canvas, 1, {50, 0, 300, 300}},                  // no more than there is
        {canvas, 16.0 / 9, {0, 37.5, 400, 225}},         //
        {{0, 0, 100, 100}, 4, {0, 25, 200, 50}},         // moved into the canvas
        {{390, 290, 10, 10}, 0.25, {392.5, 280, 5, 20}}, //
        {{0, 0, 0.5, 0.5}, 100, {0, 0, 5, 0.5}},         // a pixel at least
    };

    for (const auto& [crop, aspect, expected] : cases) {
        const Rect shaped = CropShapes::shaped(crop, canvas, aspect, 2);
        EXPECT_EQ(shaped, expected) << shaped.x << ' ' << shaped.y << ' ' << shaped.width << ' ' << shaped.height;
    }
}

} // namespace Kovrel
