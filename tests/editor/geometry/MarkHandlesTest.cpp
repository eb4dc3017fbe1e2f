#include "editor/geometry/MarkHandles.h"

#include "editor/geometry/MarkFrame.h"

#include <gtest/gtest.h>

#include <numbers>
#include <random>

namespace Kovrel {

namespace {

using Kind = Annotation::Kind;
using MarkHandles::Manner;

constexpr double quarter = std::numbers::pi / 2;

Annotation box(Kind kind, double rotation = 0)
{
    return {.kind = kind, .points = {{100, 100}, {200, 150}}, .lineWidth = 4, .rotation = rotation};
}

Annotation label(double rotation = 0)
{
    return {.kind = Kind::text, .points = {{100, 100}}, .text = "Some words", .rotation = rotation};
}

Annotation line(std::optional<Point> control = {})
{
    return {.kind = Kind::arrow, .points = {{0, 0}, {100, 0}}, .lineWidth = 4, .curveControl = control};
}

void expectNear(Point one, Point other, const char* what, double tolerance = 1e-6)
{
    EXPECT_NEAR(one.x, other.x, tolerance) << what;
    EXPECT_NEAR(one.y, other.y, tolerance) << what;
}

Point placeOf(const Annotation& mark, MarkHandle handle)
{
    for (const auto& place : MarkHandles::of(mark, 20))
        if (place.handle == handle)
            return place.at;
    ADD_FAILURE() << "no such handle";
    return {};
}

} // namespace

// However a box is turned: what is opposite to the handle stays, and the handle follows the pointer.
TEST(MarkHandlesTest, WhatIsOppositeStaysAndTheHandleFollows)
{
    const MarkHandle handles[] = {MarkHandle::lowerLeft, MarkHandle::lower,     MarkHandle::lowerRight,
                                  MarkHandle::left,      MarkHandle::right,     MarkHandle::upperLeft,
                                  MarkHandle::upper,     MarkHandle::upperRight};
    std::mt19937 random(7);
    std::uniform_real_distribution<double> by(-30, 30);
    for (int round = 0; round < 200; ++round)
        for (const MarkHandle handle : handles) {
            const Annotation start = box(Kind::rectangle, by(random) / 10);
            const bool fromCentre = round % 3 == 0;
            const Point from = placeOf(start, handle);
            const Point to{from.x + by(random) / 2, from.y + by(random) / 2};
            const Annotation mark = MarkHandles::dragged(start, handle, to, {.fromCentre = fromCentre});
            const Point direction = MarkHandles::direction(handle);
            const Point fixed = fromCentre ? Point{} : Point{-direction.x, -direction.y};
            const auto at = [](const Annotation& one, Point towards) {
                return MarkFrame::place(one, (1 + towards.x) / 2, (1 + towards.y) / 2);
            };
            expectNear(at(mark, fixed), at(start, fixed), "the opposite side");
            if (direction.x != 0 && direction.y != 0)
                expectNear(at(mark, direction), to, "the handle");
            EXPECT_EQ(mark.rotation, start.rotation);
        }
}

TEST(MarkHandlesTest, ABoxIsTurnedOverAndKeepsItsShapeWhenAsked)
{
    const Annotation over = MarkHandles::dragged(box(Kind::blur), MarkHandle::right, {60, 0}, {});
    EXPECT_EQ(over.boundingRect(), (Rect{60, 100, 40, 50}));
    const Annotation even =
        MarkHandles::dragged(box(Kind::blur), MarkHandle::upperRight, {300, 160}, {.keepsShape = true});
    EXPECT_EQ(even.boundingRect(), (Rect{100, 100, 200, 100}));
    const Annotation side = MarkHandles::dragged(box(Kind::blur), MarkHandle::upper, {0, 200}, {.keepsShape = true});
    EXPECT_EQ(side.boundingRect(), (Rect{50, 100, 200, 100})) << "wider about its middle";
    const Annotation picture = MarkHandles::dragged(box(Kind::image), MarkHandle::upperRight, {300, 160}, {});
    EXPECT_EQ(picture.boundingRect(), (Rect{100, 100, 200, 100})) << "pictures do unless asked not to";
}

TEST(MarkHandlesTest, LabelsAndStepsGrowWithoutBeingDistorted)
{
    for (const double rotation : {0.0, 0.7}) {
        const Annotation start = label(rotation);
        const Point corner = placeOf(start, MarkHandle::upperLeft);
        const Point from = placeOf(start, MarkHandle::lowerRight);
        const Point to{2 * from.x - corner.x, 2 * from.y - corner.y};
        const Annotation larger = MarkHandles::dragged(start, MarkHandle::lowerRight, to, {});
        EXPECT_NEAR(larger.fontSize, 40, 2);
        expectNear(placeOf(larger, MarkHandle::upperLeft), corner, "the opposite corner");

        const Annotation wide = MarkHandles::dragged(start, MarkHandle::right, {corner.x + 500, corner.y}, {});
        EXPECT_EQ(wide.fontSize, start.fontSize) << "its sides only say where lines end";
        EXPECT_GT(wide.textWrapWidth(), 300);
        expectNear(placeOf(wide, MarkHandle::upperLeft), corner, "the corner that stays");
    }
    const Annotation step{.kind = Kind::step, .points = {{50, 50}}, .lineWidth = 4};
    const double radius = 4 * 2.4 + 3.4;
    const Annotation larger =
        MarkHandles::dragged(step, MarkHandle::upperRight, {50 + 3 * radius, 50 + 3 * radius}, {});
    EXPECT_NEAR(MarkFrame::frame(larger).width, 4 * radius, 1e-6);
    expectNear(placeOf(larger, MarkHandle::lowerLeft), {50 - radius, 50 - radius}, "the opposite corner");
}

TEST(MarkHandlesTest, LinesAreBentMovedAndPointed)
{
    const Annotation bent = MarkHandles::dragged(line(), MarkHandle::curve, {50, 30}, {.tolerance = 3});
    expectNear(*bent.segmentMidpoint(), {50, 30}, "the curve goes through the handle");
    EXPECT_FALSE(MarkHandles::dragged(bent, MarkHandle::curve, {60, 2}, {.tolerance = 3}).curveControl)
        << "nearly straight is straight";

    const Annotation turned = MarkHandles::dragged(bent, MarkHandle::end, {0, 200}, {});
    expectNear(*turned.segmentMidpoint(), {-60, 100}, "the bend turns and grows with the line");
    const Annotation whole = MarkHandles::dragged(line(), MarkHandle::end, {80, 70}, {.keepsShape = true});
    expectNear(whole.points.back(), {75, 75}, "at a whole angle");
    const Annotation mirrored = MarkHandles::dragged(line(), MarkHandle::end, {120, 10}, {.fromCentre = true});
    expectNear(mirrored.points.front(), {-20, -10}, "the other end goes the other way");

    const Annotation start = line();
    const Point corner = placeOf(start, MarkHandle::tip);
    const Annotation larger =
        MarkHandles::dragged(start, MarkHandle::tip, {100 + 1.5 * (corner.x - 100), 1.5 * corner.y}, {});
    EXPECT_NEAR(larger.tipScale, 1.5, 1e-6);
    expectNear(placeOf(larger, MarkHandle::tip), {100 + 1.5 * (corner.x - 100), 1.5 * corner.y}, "the head", 0.5);
}

TEST(MarkHandlesTest, TurningFollowsThePointerAndStepsWhenAsked)
{
    const Annotation start = box(Kind::ellipse);
    EXPECT_NEAR(MarkHandles::dragged(start, MarkHandle::turn, {0, 125}, {}).rotation, quarter, 1e-9);
    EXPECT_NEAR(MarkHandles::dragged(start, MarkHandle::turn, {10, 140}, {.keepsShape = true}).rotation,
                std::numbers::pi / 2, 1e-9);
    const Annotation turned = MarkHandles::dragged(start, MarkHandle::turn, {0, 125}, {});
    expectNear(placeOf(turned, MarkHandle::turn), {150 - 25 - 20, 125}, "the handle turns with it");
    EXPECT_EQ(MarkHandles::at(turned, {106, 126}, 4, 20), MarkHandle::turn);
    EXPECT_EQ(MarkHandles::at(turned, {150, 125}, 4, 20), std::nullopt);
}

TEST(MarkHandlesTest, ALabelThatGrowsKeepsItsUpperLeftCorner)
{
    for (const double rotation : {0.0, 2.0})
        for (Annotation start : {label(rotation), label(rotation)}) {
            if (rotation == 0)
                start.points.push_back({180, 170});
            const Annotation longer = MarkFrame::withText(start, "Many more words than would fit into one line");
            EXPECT_GT(longer.textRect().height, start.textRect().height);
            expectNear(MarkFrame::place(longer, 0, 1), MarkFrame::place(start, 0, 1), "the corner");
        }
}

TEST(MarkHandlesTest, AGroupGrowsFromTheOppositeCorner)
{
    const auto stretch = MarkHandles::groupStretch({0, 0, 100, 50}, MarkHandle::upperRight, {150, 60}, false);
    expectNear(stretch.centre, {0, 0}, "the corner that stays");
    EXPECT_NEAR(stretch.factor, 1.5, 1e-9);
    const Annotation mark = MarkFrame::scaled(box(Kind::rectangle), stretch.centre, stretch.factor);
    EXPECT_EQ(mark.boundingRect(), (Rect{150, 150, 150, 75}));
}

} // namespace Kovrel
