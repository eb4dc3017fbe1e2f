#include "editor/geometry/MarkHit.h"

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

using Kind = Annotation::Kind;

Annotation shape(Kind kind, Rect rect, Annotation::FillStyle fill = Annotation::FillStyle::outline)
{
    return {.kind = kind,
            .points = {{rect.minX(), rect.minY()}, {rect.maxX(), rect.maxY()}},
            .lineWidth = 2,
            .fillStyle = fill};
}

Annotation line(Point from, Point to)
{
    return {.kind = Kind::line, .points = {from, to}, .lineWidth = 2};
}

} // namespace

TEST(MarkHitTest, TheMarkThatSomebodyMeans)
{
    using Fill = Annotation::FillStyle;

    struct Case {
        const char* what;
        std::vector<Annotation> marks;
        Point at;
        std::optional<size_t> expected;
    };

    const Annotation large = shape(Kind::rectangle, {0, 0, 200, 200});
    const Annotation small = shape(Kind::rectangle, {50, 50, 20, 20});
    Annotation turned = shape(Kind::rectangle, {0, 90, 200, 20}, Fill::filled);
    turned.rotation = 1.5707963;
    const Case cases[] = {
        {"nothing there", {large}, {300, 300}, {}},
        {"the topmost of two filled ones",
         {shape(Kind::rectangle, {0, 0, 100, 100}, Fill::filled), shape(Kind::ellipse, {0, 0, 100, 100}, Fill::filled)},
         {50, 50},
         1},
        {"what lies in an outline above it",
         {shape(Kind::rectangle, {50, 50, 20, 20}, Fill::filled), large},
         {60, 60},
         0},
        {"the smaller of two outlines around it", {small, large}, {60, 60}, 0},
        {"the inside of an outline where nothing else is", {large}, {100, 100}, 0},
        {"the edge of an outline above a filled one",
         {shape(Kind::rectangle, {0, 0, 300, 300}, Fill::filled), large},
         {200, 100},
         1},
        {"a thin line that is nearly hit, above a filled one",
         {shape(Kind::rectangle, {0, 0, 100, 100}, Fill::filled), line({0, 50}, {100, 50})},
         {50, 54},
         1},
        {"a filled one above a line that is nearly hit",
         {line({0, 50}, {100, 50}), shape(Kind::rectangle, {0, 53, 100, 40}, Fill::filled)},
         {50, 54},
         1},
        {"the nearer of two lines, though it lies below",
         {line({0, 50}, {100, 50}), line({0, 57}, {100, 57})},
         {50, 52.5},
         0},
        {"an arrow above a redaction, whatever their order in the list",
         {line({0, 50}, {100, 50}), shape(Kind::blackout, {0, 0, 100, 100})},
         {50, 50},
         0},
        {"a redaction within a spotlight",
         {shape(Kind::blur, {10, 10, 30, 30}), shape(Kind::spotlight, {0, 0, 200, 200})},
         {20, 20},
         0},
        {"a box where it was turned to", {turned}, {100, 190}, 0},
        {"not where a turned box was", {turned}, {190, 100}, {}},
    };
    for (const Case& one : cases)
        EXPECT_EQ(MarkHit::topmost(one.marks, one.at, 5), one.expected) << one.what;
}

TEST(MarkHitTest, ADraggedRectangleTakesWhatItTouches)
{
    const std::vector<Annotation> marks{line({0, 0}, {10, 0}), shape(Kind::ellipse, {50, 50, 10, 10}),
                                        line({100, 0}, {100, 80})};
    EXPECT_EQ(MarkHit::touching(marks, {55, -5, 100, 60}), (std::vector<size_t>{1, 2}));
}

} // namespace Kovrel
