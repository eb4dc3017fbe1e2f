#include "editor/geometry/Snapping.h"

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

const Rect canvas{0, 0, 1000, 800};

} // namespace

TEST(SnappingTest, FramesGoToEdgesMiddlesAndEqualDistances)
{
    struct Case {
        const char* what;
        Rect moving;
        std::vector<Rect> others;
        Size shift;
        size_t guides;
    };

    const Case cases[] = {
        {"nothing near", {300, 333, 50, 50}, {{100, 100, 31, 31}}, {0, 0}, 0},
        {"its left edge at another's right one", {133, 600, 57, 50}, {{100, 100, 31, 31}}, {-2, 0}, 1},
        {"its middle at the canvas's", {476, 373, 50, 50}, {}, {-1, 2}, 2},
        {"an edge of the canvas", {-3, 300, 50, 50}, {}, {3, 0}, 1},
        {"the nearer of two", {133, 600, 57, 50}, {{100, 100, 31, 31}, {134, 100, 31, 31}}, {1, 0}, 1},
        {"between two", {212, 600, 50, 50}, {{100, 590, 30, 90}, {340, 590, 40, 90}}, {-2, 0}, 2},
        {"behind a row", {263, 600, 50, 50}, {{100, 590, 30, 90}, {180, 590, 30, 90}}, {-3, 0}, 2},
        {"before a row", {31, 600, 20, 50}, {{100, 590, 30, 90}, {180, 590, 30, 90}}, {-1, 0}, 2},
        {"a row elsewhere has no say", {263, 300, 50, 50}, {{100, 590, 30, 90}, {180, 590, 30, 90}}, {0, 0}, 0},
    };
    for (const Case& one : cases) {
        const auto snapped = Snapping::moved(one.moving, one.others, canvas, 5);
        EXPECT_EQ(snapped.shift, one.shift) << one.what << ": " << snapped.shift.width << ", " << snapped.shift.height;
        EXPECT_EQ(snapped.guides.size(), one.guides) << one.what;
    }
}

TEST(SnappingTest, ACornerGoesOnlyWhereItIsFree)
{
    const std::vector<Rect> others{{100, 100, 50, 60}};
    EXPECT_EQ(Snapping::dragged({147, 163}, true, true, others, canvas, 5).shift, (Size{3, -3}));
    EXPECT_EQ(Snapping::dragged({147, 163}, true, false, others, canvas, 5).shift, (Size{3, 0}));
    const auto guides = Snapping::dragged({127, 400}, true, false, others, canvas, 5).guides;
    ASSERT_EQ(guides.size(), 1u);
    EXPECT_EQ(guides[0], (Snapping::Guide{{125, 100}, {125, 400}}));
}

} // namespace Kovrel
