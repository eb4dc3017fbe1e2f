#include "toasts/ToastPlacement.h"

#include <gtest/gtest.h>

namespace Kovrel {

TEST(ToastPlacementTest, TheCardKeepsToTheUpperRightOfWhatIsFree)
{
    struct Case {
        Rect frame;
        Rect visibleFrame;
        double fontScale;
        Rect card;
    };

    const Case cases[] = {
        {{0, 0, 1440, 900}, {0, 0, 1440, 876}, 1, {1084, 802, 344, 64}},
        {{0, 0, 1440, 900}, {}, 1, {1084, 826, 344, 64}},
        {{-960, 540, 960, 540}, {-960, 540, 900, 540}, 1, {-416, 1006, 344, 64}},
        {{0, 0, 1440, 900}, {0, 0, 1440, 900}, 1.5, {912, 794, 516, 96}},
        {{0, 0, 320, 200}, {0, 0, 320, 200}, 1, {12, 126, 296, 64}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ToastPlacement::card({.frame = c.frame, .visibleFrame = c.visibleFrame}, c.fontScale), c.card);
}

} // namespace Kovrel
