#include "picking/measure/MeasureAim.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

constexpr QRect button(40, 30, 128, 24);

// A button on a page.
QImage page()
{
    QImage image(400, 300, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter(&image).fillRect(button, QColor(46, 160, 67));
    return image;
}

MeasureAim::Still still(quint32 id, const QRect& pixels, double scale)
{
    return {{.id = id, .pixelRect = pixels, .scale = scale}, std::make_shared<MeasureSampler>(page())};
}

struct MeasureAimTest : testing::Test {
    MeasureAim aim;

    MeasureAimTest()
    {
        aim.add(still(1, {0, 0, 400, 300}, 1));
        aim.add(still(2, {400, 100, 400, 300}, 2));
    }

    std::optional<QRect> rect() const
    {
        const auto shown = aim.shown();
        return shown ? shown->rect : std::nullopt;
    }
};

} // namespace

TEST_F(MeasureAimTest, ReadsTheRunsUnderThePointerOfItsDisplay)
{
    EXPECT_FALSE(aim.shown()) << "nobody has pointed yet";
    aim.point({100, 40}, false);
    ASSERT_TRUE(aim.shown());
    EXPECT_EQ(aim.shown()->size(), button.size());
    EXPECT_EQ(aim.shown()->cross->row, (MeasureSampler::Run{40, 167}));
    aim.point(QPoint(400, 100) + button.bottomRight(), false);
    EXPECT_EQ(aim.shown()->display.id, 2u);
    EXPECT_EQ(aim.shown()->size(), button.size());
    aim.point({10, 10}, false);
    EXPECT_EQ(aim.shown()->size(), QSize(400, 300));
    aim.point({900, 10}, false);
    EXPECT_FALSE(aim.shown()) << "beyond all displays";
}

TEST_F(MeasureAimTest, ADragGoesToEdgesUnlessItIsFree)
{
    struct Case {
        const char* what;
        QPoint from, to;
        bool isFree;
        QRect rect;
    };

    const QPoint second(400, 100);
    const Case cases[] = {
        {"around the button", {37, 27}, {171, 57}, false, button},
        {"the other way round", {171, 57}, {37, 27}, false, button},
        {"a little inside of it", {44, 33}, {163, 50}, false, button},
        {"free", {37, 27}, {171, 57}, true, {37, 27, 135, 31}},
        {"far from every edge", {220, 120}, {299, 219}, false, {220, 120, 80, 100}},
        {"to the border of the display", {220, 120}, {396, 219}, false, {220, 120, 180, 100}},
        {"beyond the display", {220, 120}, {500, 219}, true, {220, 120, 180, 100}},
        {"farther on a display with two pixels to a point", second + QPoint(27, 18), second + QPoint(180, 66), false,
         button},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        aim.press(c.from);
        aim.point(c.to, c.isFree);
        EXPECT_EQ(rect(), c.rect);
        EXPECT_FALSE(aim.release(c.to, c.isFree));
        aim.point({300, 250}, false);
        EXPECT_EQ(rect(), c.rect) << "it stays when the button is let go";
    }
}

TEST_F(MeasureAimTest, AClickIsNoDrag)
{
    EXPECT_FALSE(aim.release({100, 40}, false)) << "the button was pressed elsewhere";
    aim.press({100, 40});
    aim.point({102, 41}, false);
    EXPECT_EQ(rect(), std::nullopt);
    EXPECT_TRUE(aim.release({102, 41}, false));
    EXPECT_EQ(aim.shown()->size(), button.size());
}

TEST(MeasureAim, ToleranceDecidesHowFarAGradientIsFollowed)
{
    QImage image(256, 1, QImage::Format_RGB32);
    for (int x = 0; x < 256; ++x)
        image.setPixel(x, 0, qRgb(x, x, x));
    MeasureAim aim;
    aim.add({{.id = 1, .pixelRect = image.rect()}, std::make_shared<MeasureSampler>(image)});
    aim.point({128, 0}, false);
    const auto reach = [&] { return aim.shown()->size().width() / 2; };
    EXPECT_EQ(reach(), MeasureSampler::usualTolerance);
    for (int step = 0; step < 20; ++step)
        aim.changeTolerance(1);
    EXPECT_EQ(reach(), 96);
    for (int step = 0; step < 20; ++step)
        aim.changeTolerance(-1);
    EXPECT_EQ(aim.tolerance(), 0);
    EXPECT_EQ(reach(), 0);
}

} // namespace Kovrel
