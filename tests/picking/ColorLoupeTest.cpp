#include "picking/ColorLoupeGeometry.h"
#include "picking/ColorLoupeSampler.h"

#include <QColorSpace>

#include <gtest/gtest.h>

#include <limits>

namespace Kovrel {

namespace {

LoupeStill stillOf(const Rect& frame, double scale, QSize pixels)
{
    return {{.id = 1, .frame = frame, .pixelRect = QRect({}, pixels), .scale = scale},
            QImage(pixels, QImage::Format_RGB32)};
}

QImage onePixel(QRgb color, QImage::Format format = QImage::Format_RGB32)
{
    QImage image(1, 1, format);
    image.setPixel(0, 0, color);
    return image;
}

} // namespace

TEST(ColorLoupeGeometry, FindsThePixelUnderAPoint)
{
    using Pixel = std::optional<QPoint>;
    const LoupeStill plain = stillOf({100, 50, 200, 100}, 1, {200, 100});
    const LoupeStill scaled = stillOf({100, 50, 200, 100}, 2, {400, 200});
    const LoupeStill cut = stillOf({0, 0, 100, 100}, 1.5, {150, 140}); // the picture is smaller than its display

    struct Case {
        const char* what;
        Point at;
        const LoupeStill& in;
        Pixel pixel;
    };

    constexpr double infinity = std::numeric_limits<double>::infinity();
    const Case cases[] = {
        {"the upper left pixel", {100, 149.5}, plain, QPoint(0, 0)},
        {"the lower right pixel", {299.9, 50.1}, plain, QPoint(199, 99)},
        {"the right edge", {300, 100}, plain, Pixel()},
        {"the top edge", {150, 150}, plain, Pixel()},
        {"the bottom edge, one row too low", {150, 50}, plain, Pixel()},
        {"left of the display", {99.9, 100}, plain, Pixel()},
        {"two pixels to a point", {110.7, 149.8}, scaled, QPoint(21, 0)},
        {"a row that the picture lacks", {50, 1}, cut, Pixel()},
        {"the row before it", {50, 7}, cut, QPoint(75, 139)},
        {"no number", {std::nan(""), 100}, plain, Pixel()},
        {"no end", {infinity, -infinity}, plain, Pixel()},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ColorLoupeGeometry::pixel(c.at, c.in), c.pixel) << c.what;
}

TEST(ColorLoupeGeometry, LeadsFromEachPixelBackToItself)
{
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
        const QPoint origin(1921, 37);
        LoupeStill still = stillOf({1921, -137, 300 / scale, 200 / scale}, scale, {300, 200});
        still.display.pixelRect.moveTopLeft(origin);
        for (int y = 0; y < 200; y += 3)
            for (int x = 0; x < 300; ++x) {
                const Point middle = ColorLoupeGeometry::middle(origin + QPoint(x, y), still.display);
                ASSERT_EQ(ColorLoupeGeometry::pixel(middle, still), QPoint(x, y)) << scale;
            }
    }
}

TEST(ColorLoupeSampler, WritesTheColourOfAPixel)
{
    EXPECT_EQ(ColorLoupeSampler::hex(onePixel(qRgb(255, 0, 0)), 0, 0), "#FF0000");
    EXPECT_EQ(ColorLoupeSampler::hex(onePixel(qRgb(10, 11, 171)), 0, 0), "#0A0BAB");
    EXPECT_EQ(ColorLoupeSampler::hex(onePixel(qRgba(10, 11, 171, 0)), 0, 0), "#0A0BAB") << "an unused byte";
    EXPECT_EQ(ColorLoupeSampler::hex(onePixel(qRgba(200, 100, 50, 128), QImage::Format_ARGB32), 0, 0), "#643219");
    QImage picture(3, 2, QImage::Format_RGB32);
    picture.fill(Qt::black);
    picture.setPixel(2, 1, qRgb(1, 2, 3));
    EXPECT_EQ(ColorLoupeSampler::hex(picture, 2, 1), "#010203");
    for (const QPoint beyond : {QPoint(-1, 0), QPoint(0, -1), QPoint(3, 0), QPoint(0, 2)})
        EXPECT_EQ(ColorLoupeSampler::hex(picture, beyond.x(), beyond.y()), std::nullopt);
}

TEST(ColorLoupeSampler, AnswersInSrgbWhateverThePicturesColourSpace)
{
    QImage picture = onePixel(qRgb(128, 128, 128));
    picture.setColorSpace(QColorSpace::SRgbLinear);
    EXPECT_EQ(ColorLoupeSampler::hex(picture, 0, 0), "#BCBCBC");
    picture = onePixel(qRgb(0, 200, 0));
    picture.setColorSpace(QColorSpace::SRgb);
    EXPECT_EQ(ColorLoupeSampler::hex(picture, 0, 0), "#00C800");
    picture.setColorSpace(QColorSpace::DisplayP3);
    const auto narrowed = ColorLoupeSampler::hex(picture, 0, 0);
    ASSERT_TRUE(narrowed);
    EXPECT_GT(QColor(*narrowed).green(), 200) << "the same green lies farther out in a smaller space";
    EXPECT_EQ(QColor(*narrowed).red(), 0);
}

} // namespace Kovrel
