#include "cards/PileMotion.h"
#include "tests/support/FakeMainLoop.h"
#include "ui/tokens/Motion.h"

#include <gtest/gtest.h>

namespace Kovrel {

using namespace std::chrono_literals;

namespace {

const QUuid card(1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);

struct PileMotionTest : testing::Test {
    Testing::FakeMainLoop loop;
    int frames = 0;
    PileMotion motion{loop, [this] { ++frames; }};

    ~PileMotionTest() override { Motion::shared().setReduced(false); }
};

} // namespace

TEST_F(PileMotionTest, MovesByAClockThatRestsWhenAllHaveArrived)
{
    motion.place(card, {{0, 0}, 0});
    EXPECT_EQ(loop.pendingTimers(), 0u);
    motion.moveTo(card, {{0, 100}, 1}, 200ms);
    loop.advance(100ms);
    const auto half = motion.pose(card);
    EXPECT_GT(half.origin.y(), 50) << "fast first, slow at the end";
    EXPECT_LT(half.origin.y(), 100);
    EXPECT_DOUBLE_EQ(half.opacity, half.origin.y() / 100);
    loop.advance(200ms);
    EXPECT_EQ(motion.pose(card), (PileMotion::Pose{{0, 100}, 1}));
    EXPECT_EQ(loop.pendingTimers(), 0u);
    const int counted = frames;
    EXPECT_GE(counted, 200 / 16);
    loop.advance(1h);
    EXPECT_EQ(frames, counted);
}

TEST_F(PileMotionTest, ARestartBeginsWhereTheCardIs)
{
    motion.place(card, {{0, 0}, 1});
    motion.moveTo(card, {{0, 100}, 1}, 200ms);
    loop.advance(80ms);
    const double here = motion.pose(card).origin.y();
    motion.moveTo(card, {{0, -100}, 1}, 200ms);
    EXPECT_DOUBLE_EQ(motion.pose(card).origin.y(), here);
    loop.advance(40ms);
    const auto before = motion.pose(card);
    motion.moveTo(card, {{0, -100}, 1}, 200ms);
    loop.advance(160ms);
    EXPECT_EQ(motion.pose(card).origin.y(), -100) << "sent to the same place again, it is not late";
    EXPECT_LT(before.origin.y(), here);
}

TEST_F(PileMotionTest, WhoWantsNoMotionSeesTheEnd)
{
    Motion::shared().setReduced(true);
    motion.place(card, {{0, 0}, 0});
    motion.moveTo(card, {{0, 100}, 1}, 200ms);
    EXPECT_EQ(motion.pose(card), (PileMotion::Pose{{0, 100}, 1}));
    EXPECT_EQ(loop.pendingTimers(), 0u);
}

} // namespace Kovrel
