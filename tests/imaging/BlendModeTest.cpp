#include "imaging/BlendMode.h"

#include "tests/support/PictureDifference.h"
#include "tests/support/TestPictures.h"

#include <QImage>
#include <QPainter>
#include <QPicture>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

QPainterPath rectPath(const QRectF& rect)
{
    QPainterPath path;
    path.addRect(rect);
    return path;
}

QRgb filled(QRgb backdrop, QRgb source, BlendMode mode)
{
    QImage image(1, 1, QImage::Format_ARGB32_Premultiplied);
    image.setPixel(0, 0, qPremultiply(backdrop));
    QPainter painter(&image);
    Blending::fillPaths(painter, {rectPath({0, 0, 1, 1})}, QColor::fromRgba(source), mode);
    return image.pixel(0, 0);
}

QString hex(QRgb pixel)
{
    return QString::number(pixel, 16);
}

// What the formulas make of each pixel by how much of it is covered.
QImage pixelByPixel(QImage image, const std::vector<QPainterPath>& paths, const QColor& color, BlendMode mode)
{
    QImage coverage(image.size(), QImage::Format_Alpha8);
    coverage.fill(0);
    QPainter painter(&coverage);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const QPainterPath& path : paths)
        painter.fillPath(path, Qt::black);
    painter.end();
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QRgb below = image.pixel(x, y);
            const int covered = coverage.constScanLine(y)[x];
            const float alpha = color.alphaF() * float(covered) / 255;
            const auto mixed =
                Blending::blended({float(qRed(below)) / 255, float(qGreen(below)) / 255, float(qBlue(below)) / 255, 1},
                                  {color.redF(), color.greenF(), color.blueF(), alpha}, mode);
            const auto level = [](float value) { return int(value * 255 + 0.5f); };
            if (covered > 0)
                image.setPixel(x, y, qRgb(level(mixed.red), level(mixed.green), level(mixed.blue)));
        }
    return image;
}

} // namespace

// Worked by hand from the formulas. Opaque on opaque is exact.
TEST(BlendModeTest, KnownColours)
{
    const struct {
        BlendMode mode;
        QRgb backdrop;
        QRgb source;
        QRgb result;
    } cases[] = {
        {BlendMode::normal, 0xff000000, 0x80ff0000, 0xff800000},
        {BlendMode::multiply, 0xffffffff, 0xff336699, 0xff336699},
        {BlendMode::multiply, 0xff808080, 0xffff8000, 0xff804000},
        {BlendMode::multiply, 0xff000000, 0xffffffff, 0xff000000},
        // Half over white: (255 + 51) / 2.
        {BlendMode::multiply, 0xffffffff, 0x80330000, 0xff997f7f},
        {BlendMode::multiply, 0x00000000, 0xff336699, 0xff336699},
        // A grey takes the hue and keeps its lightness: red of luminosity 0.3 is raised by 0.2 and cut to the gamut.
        {BlendMode::color, 0xff808080, 0xffff0000, 0xffff4a4a},
        {BlendMode::color, 0xffffffff, 0xff123456, 0xffffffff},
        {BlendMode::color, 0xff000000, 0xffffd60a, 0xff000000},
        {BlendMode::color, 0xff808080, 0x00ff0000, 0xff808080},
        {BlendMode::plusLighter, 0xff404040, 0xff102030, 0xff506070},
        {BlendMode::plusLighter, 0xffc0c0c0, 0xff808080, 0xffffffff},
        {BlendMode::plusLighter, 0xff404040, 0x33ff0000, 0xff734040},
    };

    for (const auto& [mode, backdrop, source, result] : cases)
        EXPECT_EQ(hex(filled(backdrop, source, mode)), hex(result)) << qPrintable(hex(backdrop) + ' ' + hex(source));
}

TEST(BlendModeTest, OverlappingPathsCountOnceAndTheClipHolds)
{
    QImage image(40, 40, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setTransform(QTransform(2, 0, 0, -2, 0, 40));
    painter.setClipRect(QRect(0, 0, 10, 20));
    Blending::fillPaths(painter, {rectPath({0, 0, 8, 8}), rectPath({4, 4, 16, 16})}, QColor(255, 0, 0, 128),
                        BlendMode::multiply);
    painter.end();
    const QRgb once = image.pixel(2, 38);
    EXPECT_EQ(hex(once), "ffff7f7f");
    EXPECT_EQ(image.pixel(12, 26), once); // in both
    EXPECT_EQ(image.pixel(18, 10), once);
    EXPECT_EQ(hex(image.pixel(30, 10)), "ffffffff"); // beyond the clip
    EXPECT_EQ(hex(image.pixel(2, 2)), "ffffffff");
}

TEST(BlendModeTest, WhatIsNoImageOfItsFormatsIsLeftAlone)
{
    QPicture picture;
    QPainter recorder(&picture);
    Blending::fillPaths(recorder, {rectPath({0, 0, 9, 9})}, Qt::red, BlendMode::multiply);
    recorder.end();
    EXPECT_EQ(picture.boundingRect(), QRect());
    QImage grey(4, 4, QImage::Format_Grayscale8);
    grey.fill(7);
    QPainter painter(&grey);
    Blending::fillPaths(painter, {rectPath({0, 0, 4, 4})}, Qt::red, BlendMode::normal);
    EXPECT_EQ(grey.pixelColor(3, 3).red(), 7);
}

// Slanting, with gaps between the paths, from far outside, and as small as a pixel.
TEST(BlendModeTest, EveryPixelIsAsCoveredAsByThePathsAtOnce)
{
    QPainterPath slanting;
    slanting.addPolygon(QPolygonF({{-900, -300}, {190.3, 290.7}, {170.6, 299.2}, {-920, -280}}));
    QPainterPath round;
    round.addEllipse(QRectF(95.2, 40.4, 70, 50.3)); // over two bands
    const std::vector<QPainterPath> paths{slanting, round, rectPath({3.5, 250.25, 1, 1}), rectPath({196, 127.5, 9, 1})};
    for (const BlendMode mode : {BlendMode::normal, BlendMode::multiply, BlendMode::color, BlendMode::plusLighter}) {
        QImage image = Testing::testPicture({203, 301}, Testing::Texture::noise).convertToFormat(QImage::Format_RGB32);
        const QColor color(200, 60, 10, 170);
        const QImage expected = pixelByPixel(image, paths, color, mode);
        QPainter painter(&image);
        Blending::fillPaths(painter, paths, color, mode);
        painter.end();
        EXPECT_TRUE(Testing::samePicture(image, expected, 1)); // the last digit of a float
    }
}

} // namespace Kovrel
