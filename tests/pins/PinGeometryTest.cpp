#include "pins/PinGeometry.h"

#include <gtest/gtest.h>

namespace Kovrel {

using namespace PinGeometry;

TEST(PinGeometryTest, OpensAtActualSizeWithinItsShareOfTheScreen)
{
    struct Case {
        QSize pixels;
        double scale;
        QSizeF size;
    };

    const Case cases[] = {
        {{100, 50}, 2, {120, 90}},    {{4000, 3000}, 2, {720, 540}}, {{800, 600}, 2, {400, 300}},
        {{800, 600}, 0, {720, 540}},  {{864, 540}, 1, {864, 540}},   {{8640, 200}, 1, {864, 90}},
        {{200, 5400}, 1, {120, 540}}, {{1, 1}, 1, {120, 90}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(spawnSize(c.pixels, c.scale, {1440, 900}), c.size) << c.pixels.width() << 'x' << c.pixels.height();
}

TEST(PinGeometryTest, CornersGoBeforeEdgesAndInTheMiddleItIsMoved)
{
    struct Case {
        QPointF point;
        Zone zone;
    };

    const Case cases[] = {
        {{5, 295}, Zone::bottomLeft},    {{17, 17}, Zone::topLeft}, {{383, 17}, Zone::topRight},
        {{390, 290}, Zone::bottomRight}, {{5, 150}, Zone::left},    {{395, 150}, Zone::right},
        {{200, 295}, Zone::bottom},      {{200, 5}, Zone::top},     {{200, 150}, Zone::none},
        {{18, 10}, Zone::none},          {{10, 18}, Zone::none},    {{390, 150}, Zone::none},
    };
    for (const Case& c : cases)
        EXPECT_EQ(zoneAt({400, 300}, c.point), c.zone) << c.point.x() << ',' << c.point.y();
}

TEST(PinGeometryTest, ButtonsHaveSquaresAlongTheUpperEdge)
{
    struct Case {
        QPointF point;
        Button button;
    };

    const Case cases[] = {
        {{21, 21}, Button::close},  {{8, 34}, Button::close}, {{6, 21}, Button::none},   {{36, 21}, Button::none},
        {{379, 21}, Button::unpin}, {{349, 8}, Button::edit}, {{364, 21}, Button::none}, {{349, 36}, Button::none},
    };
    for (const Case& c : cases)
        EXPECT_EQ(buttonAt({400, 300}, c.point), c.button) << c.point.x() << ',' << c.point.y();
}

TEST(PinGeometryTest, ADragKeepsProportionsAndWhatLiesAcross)
{
    const Picture picture{.size = {400, 300}};
    const Frame start{{100, 100, 400, 300}, 1};

    struct Case {
        Zone zone;
        QPointF movement;
        QRectF pixels;
    };

    const Case cases[] = {
        {Zone::none, {-30, 12.5}, {70, 112.5, 400, 300}},
        {Zone::right, {40, 99}, {100, 100, 440, 330}},
        {Zone::left, {40, 0}, {140, 100, 360, 270}},
        {Zone::bottom, {99, 30}, {100, 100, 440, 330}},
        {Zone::top, {0, -30}, {100, 70, 440, 330}},
        {Zone::bottomRight, {80, 6}, {100, 100, 480, 360}},
        {Zone::bottomRight, {-4, 60}, {100, 100, 480, 360}},
        {Zone::topLeft, {-80, -60}, {20, 40, 480, 360}},
        {Zone::topRight, {80, -60}, {100, 40, 480, 360}},
        {Zone::bottomLeft, {-80, 60}, {20, 100, 480, 360}},
        {Zone::bottomRight, {-1000, -1000}, {100, 100, 120, 90}},
        {Zone::left, {1000, 0}, {380, 100, 120, 90}},
    };
    for (const Case& c : cases) {
        const Frame frame = dragged(start, c.zone, c.movement, picture);
        EXPECT_NEAR((frame.pixels.topLeft() - c.pixels.topLeft()).manhattanLength(), 0, 1e-9) << int(c.zone);
        EXPECT_NEAR(frame.pixels.width(), c.pixels.width(), 1e-9) << int(c.zone);
        EXPECT_NEAR(frame.pixels.height(), c.pixels.height(), 1e-9) << int(c.zone);
    }
}

TEST(PinGeometryTest, AStripGrowsAndShrinksWithoutAJump)
{
    // It is shown within a frame that is higher than itself.
    const QSizeF strip(4000, 40);
    const double zoom = spawnZoom(strip, {1440, 900});
    const Picture picture{.size = strip, .spawnZoom = zoom, .scale = 2};
    const Frame start{QRectF(QPointF(0, 0), frameSize(strip, zoom) * 2), zoom};
    EXPECT_EQ(dragged(start, Zone::right, {0, 0}, picture), start);
    const Frame larger = dragged(start, Zone::right, {172.8, 0}, picture);
    EXPECT_NEAR(larger.pixels.width(), 1900.8, 1e-6);
    EXPECT_EQ(larger.pixels.height(), 180);
    EXPECT_EQ(dragged(larger, Zone::right, {-500, 0}, picture).pixels.size(), start.pixels.size());
    EXPECT_LT(dragged(start, Zone::right, {1e9, 0}, picture).pixels.width(), 32767) << "as large as windows can be";
}

TEST(PinGeometryTest, AnotherZoomLeavesTheMiddleWhereItIs)
{
    const Picture picture{.size = {400, 300}, .scale = 2};
    EXPECT_EQ(zoomed({{100, 100, 400, 300}, 0.5}, 1, picture), (Frame{{-100, -50, 800, 600}, 1}));
}

} // namespace Kovrel
