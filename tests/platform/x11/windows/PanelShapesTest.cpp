#include "platform/x11/windows/X11PanelShapes.h"
#include "tests/support/PaintedScreen.h"
#include "tests/support/VirtualDisplay.h"

#include <gtest/gtest.h>

namespace Kovrel {

TEST(PanelShapesTest, AWindowIsUnderThePointerOnlyInItsRegion)
{
    const Testing::VirtualDisplay display;
    Testing::PaintedScreen screen(display.name());
    const auto window = screen.show({.pixels = {100, 100, 200, 100}, .colour = Qt::green, .managesItself = true});
    X11PanelShapes shapes(std::make_unique<X11Connection>(display.name()));
    const auto isUnderPointer = [&](QPoint pixel) {
        screen.movePointer(pixel);
        auto* answer = xcb_query_pointer_reply(screen.connection(),
                                               xcb_query_pointer(screen.connection(), screen.root()), nullptr);
        const bool isUnder = answer && answer->child == window;
        std::free(answer);
        return isUnder;
    };
    // What two connections ask for is done in an order that nobody knows.
    const auto leavesPointerAt = [&](QPoint pixel) {
        for (int round = 0; round < 1000; ++round)
            if (!isUnderPointer(pixel))
                return true;
        return false;
    };
    EXPECT_TRUE(isUnderPointer({299, 199}));

    // A card with the square of a button at its corner.
    shapes.takeInputOnlyIn(window, QRegion(30, 30, 100, 50) | QRegion(13, 13, 34, 34));
    EXPECT_TRUE(leavesPointerAt({250, 150})) << "its shadow";
    EXPECT_FALSE(isUnderPointer({115, 160})) << "beside both";
    EXPECT_TRUE(isUnderPointer({180, 150}));
    EXPECT_TRUE(isUnderPointer({114, 114}));

    shapes.takeInputOnlyIn(window, {});
    EXPECT_TRUE(leavesPointerAt({180, 150}));
}

} // namespace Kovrel
