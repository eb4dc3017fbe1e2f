#include "cards/PileLayout.h"

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

const QRectF area(0, 30, 1000, 470); // below a panel

} // namespace

TEST(PileLayoutTest, TheNewestIsNearestTheCorner)
{
    struct Case {
        PreviewPosition position;
        QPointF first;
        QPointF second;
    };

    const Case cases[] = {
        {PreviewPosition::topLeft, {16, 46}, {16, 158}},
        {PreviewPosition::topRight, {784, 46}, {784, 158}},
        {PreviewPosition::bottomLeft, {16, 384}, {16, 272}},
        {PreviewPosition::bottomRight, {784, 384}, {784, 272}},
    };
    for (const Case& c : cases) {
        const auto places = PileLayout::places(area, c.position, {{200, 100}, {200, 100}});
        EXPECT_EQ(places[0], QRectF(c.first, QSizeF(200, 100))) << int(c.position);
        EXPECT_EQ(places[1], QRectF(c.second, QSizeF(200, 100))) << int(c.position);
    }
}

TEST(PileLayoutTest, AFullColumnIsFollowedByOneFurtherIn)
{
    const std::vector<QSizeF> cards(20, QSizeF(200, 100));
    const auto places = PileLayout::places(area, PreviewPosition::bottomRight, cards);
    // 438 points hold four cards and their gaps, but not five; half of the width holds two columns.
    EXPECT_EQ(places[3].topLeft(), QPointF(784, 48));
    EXPECT_EQ(places[4].topLeft(), QPointF(572, 384));
    EXPECT_EQ(PileLayout::fitting(area, cards), 8u);
    for (size_t card = 0; card < cards.size(); ++card) {
        EXPECT_TRUE(area.contains(places[card])) << card;
        for (size_t other = 0; other < card && card < 8; ++other)
            EXPECT_FALSE(places[card].intersects(places[other])) << card << " and " << other;
    }
}

TEST(PileLayoutTest, OneCardHasAPlaceHoweverSmallTheArea)
{
    EXPECT_EQ(PileLayout::fitting({0, 0, 100, 50}, {{200, 100}, {200, 100}}), 1u);
    EXPECT_EQ(PileLayout::fitting(area, {}), 0u);
}

} // namespace Kovrel
