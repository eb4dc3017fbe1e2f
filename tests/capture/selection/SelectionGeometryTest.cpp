#include "capture/selection/SelectionGeometry.h"
#include "capture/selection/AreaSelection.h"
#include "capture/selection/WindowTiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr qint64 ownPid = 42;

// Two displays side by side, of which the right one is lower and shorter.
const DisplayList displays{{.id = 1, .pixelRect = {0, 0, 1000, 800}, .isPrimary = true},
                           {.id = 2, .pixelRect = {1000, 200, 600, 500}}};

WindowInfo window(quint32 id, const QRect& pixels, WindowType type = WindowType::normal, qint64 pid = 1)
{
    return {.id = id, .ownerPid = pid, .pixelRect = pixels, .type = type, .isOnScreen = true};
}

} // namespace

TEST(SelectionGeometry, SnapsToThePixelGridAndKeepsAPixel)
{
    struct Case {
        Rect rect;
        double scale;
        Rect snapped;
    };

    const Case cases[] = {
        {{10.3, 5.2, 9.8, 4.1}, 2, {10.5, 5, 9.5, 4.5}},
        {{10.3, 5.2, 0.1, 0.1}, 2, {10.5, 5, 0.5, 0.5}},
        {{1.3, 1.3, 7.3, 7.3}, 1.25, {1.6, 1.6, 7.2, 7.2}},
        {{1.3, 1.3, 0, 5}, 2, {1.3, 1.3, 0, 5}},
        {{1.3, 1.3, 5, 5}, 0, {1.3, 1.3, 5, 5}},
    };
    for (const Case& c : cases) {
        const Rect snapped = SelectionGeometry::snapped(c.rect, c.scale);
        EXPECT_NEAR(snapped.x, c.snapped.x, 1e-9);
        EXPECT_NEAR(snapped.y, c.snapped.y, 1e-9);
        EXPECT_NEAR(snapped.width, c.snapped.width, 1e-9);
        EXPECT_NEAR(snapped.height, c.snapped.height, 1e-9);
    }
}

TEST(SelectionGeometry, OnlyTheOuterEdgesOfTheDesktopReachOnePixelFurther)
{
    EXPECT_EQ(SelectionGeometry::cornerAt({10, 10}, displays), QPoint(10, 10));
    EXPECT_EQ(SelectionGeometry::cornerAt({999, 300}, displays), QPoint(999, 300)) << "the other display goes on";
    EXPECT_EQ(SelectionGeometry::cornerAt({999, 100}, displays), QPoint(1000, 100));
    EXPECT_EQ(SelectionGeometry::cornerAt({1599, 699}, displays), QPoint(1600, 700));
}

TEST(SelectionGeometry, AWindowIsHitWhereItIsSeen)
{
    std::vector<WindowInfo> windows{window(1, {0, 0, 1000, 800}, WindowType::other, ownPid),
                                    window(2, {100, 100, 100, 100}, WindowType::menu),
                                    window(3, {0, 0, 1000, 40}, WindowType::dock),
                                    window(4, {0, 0, 400, 400}),
                                    window(5, {300, 0, 400, 400}),
                                    window(6, {0, 0, 1000, 800}, WindowType::desktop)};
    windows.push_back(window(7, {0, 500, 10, 10}));
    windows.back().isOnScreen = false;
    const auto hit = [&](QPoint pixel) {
        const auto index = SelectionGeometry::hoveredWindowIndex(windows, pixel, ownPid);
        return index ? int(windows[*index].id) : 0;
    };
    EXPECT_EQ(hit({150, 150}), 2) << "a menu";
    EXPECT_EQ(hit({350, 100}), 4) << "the one in front";
    EXPECT_EQ(hit({500, 100}), 5);
    EXPECT_EQ(hit({500, 20}), 0) << "a panel hides what is behind it";
    EXPECT_EQ(hit({900, 700}), 0) << "the desktop";
    EXPECT_EQ(hit({5, 505}), 0) << "one that is not shown";
    windows[4].ownerPid = ownPid;
    EXPECT_EQ(hit({500, 100}), 5) << "a titled window of our own is like others";
    EXPECT_THAT(SelectionGeometry::touchedIndices(windows, {390, 390, 30, 30}, ownPid), ElementsAre(3u, 4u));
    EXPECT_EQ(SelectionGeometry::partInSight(windows, windows[4], ownPid), QRegion(400, 40, 300, 360));
}

TEST(WindowTiles, AreWindowsThatShareAnEdgeUnderThePointer)
{
    const WindowInfo left = window(1, {0, 0, 500, 600});
    const WindowInfo right = window(2, {510, 0, 400, 602});
    const auto groupAt = [&](const WindowInfo& other, QPoint pointer, double scale = 1) {
        return WindowTiles::groupAt({left, other}, pointer, scale, ownPid);
    };
    EXPECT_THAT(groupAt(right, {505, 300}), ElementsAre(0u, 1u));
    EXPECT_THAT(groupAt(right, {300, 300}), IsEmpty()) << "far from the seam";
    EXPECT_THAT(groupAt(window(2, {510, 0, 400, 500}), {505, 300}), IsEmpty()) << "shorter";
    EXPECT_THAT(groupAt(window(2, {518, 0, 400, 600}), {509, 300}), IsEmpty()) << "a gap too wide";
    EXPECT_THAT(groupAt(window(2, {518, 0, 400, 600}), {509, 300}, 2), ElementsAre(0u, 1u)) << "with finer pixels not";
    EXPECT_THAT(groupAt(window(2, {490, 0, 400, 600}), {495, 300}), IsEmpty()) << "they overlap";
    EXPECT_THAT(groupAt(window(2, {510, 0, 400, 600}, WindowType::dialog), {505, 300}), IsEmpty());
    EXPECT_THAT(groupAt(window(2, {0, 608, 500, 100}), {250, 604}), ElementsAre(0u, 1u)) << "one below the other";
    EXPECT_EQ(WindowTiles::liveTileMembers({left, right}, 1).size(), 2u);
    EXPECT_THAT(WindowTiles::liveTileMembers({left, window(2, {700, 0, 400, 600})}, 1), IsEmpty()) << "moved away";
}

TEST(AreaSelection, FollowsPointerAndKeyboardAndStaysOnTheDesktop)
{
    AreaSelection area(displays);
    EXPECT_EQ(area.rect(), std::nullopt);
    area.drag({50, 50}, false);
    EXPECT_EQ(area.rect(), std::nullopt) << "nothing is pressed";

    area.press({100, 100});
    area.drag({160, 90}, false);
    EXPECT_EQ(area.rect(), QRect(100, 90, 60, 10));
    area.drag({160, 90}, true);
    EXPECT_EQ(area.rect(), QRect(100, 40, 60, 60));
    area.drag({10, 10}, true);
    area.drag({400, 30}, true);
    EXPECT_EQ(area.rect(), QRect(100, 0, 100, 100)) << "no higher than the desktop";

    area.drag({160, 150}, false);
    area.beginMoving();
    area.drag({170, 155}, false);
    EXPECT_EQ(area.rect(), QRect(110, 105, 60, 50));
    area.drag({5, 5}, false);
    EXPECT_EQ(area.rect(), QRect(0, 0, 60, 50)) << "stops at the edge";
    area.drag({180, 160}, false);
    EXPECT_EQ(area.rect(), QRect(120, 110, 60, 50)) << "held where it was taken";
    area.drag({5, 5}, false);
    area.endMoving();
    area.drag({80, 70}, false);
    EXPECT_EQ(area.rect(), QRect(0, 0, 80, 70)) << "resized again";
    area.release();
    EXPECT_FALSE(area.isDragging());

    AreaSelection keyed(displays);
    keyed.extend({1598, 698}, {1, 0});
    keyed.extend({0, 0}, {10, 10});
    EXPECT_EQ(keyed.rect(), QRect(1598, 698, 2, 10)) << "from the pointer's place, to the desktop's edge";
    EXPECT_EQ(keyed.cornerPixel(), QPoint(1599, 708));
    keyed.moveBy({-98, 0});
    EXPECT_EQ(keyed.rect(), QRect(1500, 698, 2, 10));
    keyed.moveBy({0, 9999});
    EXPECT_EQ(keyed.rect(), QRect(1500, 790, 2, 10));
}

} // namespace Kovrel
