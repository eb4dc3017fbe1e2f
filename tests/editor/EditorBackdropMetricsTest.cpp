#include "editor/EditorBackdropMetrics.h"

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

void expectNear(const Rect& rect, const Rect& expected, const char* name)
{
    EXPECT_NEAR(rect.x, expected.x, 1e-9) << name;
    EXPECT_NEAR(rect.y, expected.y, 1e-9) << name;
    EXPECT_NEAR(rect.width, expected.width, 1e-9) << name;
    EXPECT_NEAR(rect.height, expected.height, 1e-9) << name;
}

EditorBackdrop padded(double padding)
{
    EditorBackdrop backdrop;
    backdrop.padding = padding;
    return backdrop;
}

} // namespace

TEST(EditorBackdropMetrics, TheCanvasOfWorkedFigures)
{
    EditorBackdrop none = EditorBackdrop::none;
    none.padding = 0.25;
    none.aspect = AspectRatio{1, 1};
    EditorBackdrop square = padded(0.25);
    square.aspect = AspectRatio{1, 1};
    EditorBackdrop pushed = square;
    pushed.alignment = CardAlignment::topLeft;
    EditorBackdrop framed = padded(0.25);
    framed.frame = 0.5;

    const struct {
        const char* name;
        EditorBackdrop backdrop;
        Rect canvas;
    } cases[] = {
        {"none", none, {0, 0, 400, 200}},
        {"padding", padded(0.25), {-40, -40, 480, 280}},
        {"frame", framed, {-50, -50, 500, 300}},
        {"square", square, {-40, -140, 480, 480}},
        // 16 points, 0.4 of the padding, stay to the left and above.
        {"top left", pushed, {-16, -264, 480, 480}},
    };

    for (const auto& [name, backdrop, canvas] : cases)
        expectNear(EditorBackdropMetrics::canvasRect({400, 200}, backdrop), canvas, name);
}

} // namespace Kovrel
