#include "cards/CardGesture.h"

#include <gtest/gtest.h>

namespace Kovrel {

TEST(CardGestureTest, TowardsTheEdgeACardIsFlickedAnywhereElseItIsDraggedOut)
{
    using enum CardGesture::Kind;
    using enum PreviewPosition;

    struct Case {
        QPointF way;
        PreviewPosition position;
        CardGesture::Kind kind;
        double slide;
    };

    const Case cases[] = {
        {{5, 5}, bottomRight, none, 5},      {{20, 3}, bottomRight, flick, 20}, {{20, 3}, bottomLeft, dragOut, 0},
        {{-20, 3}, topLeft, flick, -20},     {{-20, 3}, topRight, dragOut, 0},  {{20, 20}, bottomRight, dragOut, 20},
        {{0, -30}, bottomRight, dragOut, 0},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(CardGesture::of(c.way, c.position), c.kind) << c.way.x() << ' ' << c.way.y();
        EXPECT_EQ(CardGesture::slide(c.way, c.position), c.slide) << c.way.x() << ' ' << c.way.y();
    }
}

} // namespace Kovrel
