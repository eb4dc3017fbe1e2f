#include "imaging/Resampling.h"
#include "tests/support/PictureDifference.h"
#include "tests/support/TestPictures.h"

#include <gtest/gtest.h>

#include <cmath>

namespace Kovrel {

using Testing::testPicture;
using Testing::Texture;

namespace {

// The mean over an area of a picture with fractional edges, straight from the definition.
QRgb meanOver(const QImage& image, double left, double top, double right, double bottom)
{
    double sums[4] = {};
    double area = 0;
    for (int y = int(top); y < std::min<double>(std::ceil(bottom), image.height()); ++y) {
        for (int x = int(left); x < std::min<double>(std::ceil(right), image.width()); ++x) {
            const double part = (std::min(right, x + 1.0) - std::max(left, double(x))) *
                                (std::min(bottom, y + 1.0) - std::max(top, double(y)));
            for (int channel = 0; channel < 4; ++channel)
                sums[channel] += part * (image.pixel(x, y) >> (8 * channel) & 0xFF);
            area += part;
        }
    }
    QRgb mean = 0;
    for (int channel = 0; channel < 4; ++channel)
        mean |= QRgb(sums[channel] / area + 0.5) << (8 * channel);
    return mean;
}

} // namespace

TEST(Resampling, EachPixelIsTheMeanOfItsArea)
{
    for (const double factor : {1.25, 1.5, 2.0, 3.0, 1.01, 7.3}) {
        const QImage image = testPicture({67, 41}, Texture::noise);
        const QImage reduced = Resampling::reduced(image, factor).value();
        EXPECT_EQ(reduced.size(), QSize(qRound(67 / factor), qRound(41 / factor))) << factor;
        QImage expected(reduced.size(), QImage::Format_RGB32);
        const double stepX = 67.0 / reduced.width();
        const double stepY = 41.0 / reduced.height();
        for (int y = 0; y < reduced.height(); ++y)
            for (int x = 0; x < reduced.width(); ++x)
                expected.setPixel(x, y, meanOver(image, x * stepX, y * stepY, (x + 1) * stepX, (y + 1) * stepY));
        EXPECT_TRUE(Testing::samePicture(reduced, expected, 1)) << factor;
    }
}

TEST(Resampling, WhatIsInvisibleHasNoColour)
{
    QImage image(2, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, qRgba(255, 0, 0, 255));
    image.setPixel(1, 0, qRgba(0, 255, 0, 0));
    const QColor mean = Resampling::reduced(image, 2)->pixelColor(0, 0);
    EXPECT_NEAR(mean.alpha(), 128, 1);
    EXPECT_EQ(mean.red(), 255);
    EXPECT_EQ(mean.green(), 0);
}

TEST(Resampling, FlatPicturesStayFlatAndKeepTheirProfileAndDensity)
{
    QImage image = testPicture({1001, 3}, Texture::flat);
    image.setColorSpace(QColorSpace::AdobeRgb);
    image.setDotsPerMeterX(1234);
    image.setDotsPerMeterY(4321);
    const QImage reduced = Resampling::reduced(image, 1.75).value();
    EXPECT_TRUE(Testing::samePicture(reduced, testPicture(reduced.size(), Texture::flat)));
    EXPECT_EQ(reduced.colorSpace(), QColorSpace(QColorSpace::AdobeRgb));
    EXPECT_EQ(reduced.dotsPerMeterX(), 1234);
    EXPECT_EQ(reduced.dotsPerMeterY(), 4321);
}

TEST(Resampling, NothingVanishesAndNothingGrows)
{
    EXPECT_EQ(Resampling::reduced(testPicture({1, 900}, Texture::noise), 4)->size(), QSize(1, 225));
    for (const double factor : {1.0, 0.5, 0.0, -2.0, std::nan(""), double(INFINITY)})
        EXPECT_FALSE(Resampling::reduced(testPicture({8, 8}, Texture::flat), factor)) << factor;
    EXPECT_FALSE(Resampling::reduced(QImage(), 2));
}

TEST(Resampling, ASizeIsTheOneAskedForOrNone)
{
    const QImage image = testPicture({31, 17}, Texture::noise);
    for (const QSize size : {QSize(1, 1), QSize(31, 17), QSize(62, 9), QSize(7, 40), QSize(32767, 1)}) {
        const auto resampled = Resampling::resampledExactly(image, size);
        ASSERT_TRUE(resampled);
        EXPECT_EQ(resampled->size(), size);
    }
    EXPECT_TRUE(Testing::identicalPicture(*Resampling::resampledExactly(image, image.size()), image));
    for (const QSize size : {QSize(), QSize(0, 5), QSize(-3, 5), QSize(32768, 1), QSize(30000, 30000)})
        EXPECT_FALSE(Resampling::resampledExactly(image, size));
    EXPECT_FALSE(Resampling::resampledExactly(QImage(), {5, 5}));
}

TEST(Resampling, WhatIsEvenStaysEvenAndPutsOnNoFringe)
{
    QImage clear(9, 7, QImage::Format_ARGB32_Premultiplied);
    clear.fill(qRgba(60, 30, 90, 100));
    for (const QSize size : {QSize(40, 3), QSize(3, 40), QSize(23, 19), QSize(4, 4)}) {
        QImage expected(size, clear.format());
        expected.fill(qRgba(60, 30, 90, 100));
        EXPECT_TRUE(Testing::identicalPicture(*Resampling::resampledExactly(clear, size), expected)) << size.width();
        EXPECT_TRUE(Testing::samePicture(*Resampling::resampledExactly(testPicture({9, 7}, Texture::flat), size),
                                         testPicture(size, Texture::flat)));
    }
}

// A straight ramp is what every cubic that is worth its name leaves straight.
TEST(Resampling, LargerPicturesLieOnTheCurveThroughTheSmaller)
{
    QImage ramp(16, 1, QImage::Format_RGB32);
    for (int x = 0; x < 16; ++x)
        ramp.setPixel(x, 0, qRgb(16 * x, 16 * x, 16 * x));
    const QImage larger = *Resampling::resampledExactly(ramp, {64, 3});
    for (int x = 8; x < 56; ++x)
        EXPECT_NEAR(qRed(larger.pixel(x, 1)), 16 * ((x + 0.5) / 4 - 0.5), 0.51) << x;

    // Three times as large, every third pixel lies where one was.
    const QImage image = testPicture({20, 10}, Texture::noise);
    const QImage tripled = *Resampling::resampledExactly(image, {60, 30});
    for (int y = 0; y < 10; ++y)
        for (int x = 0; x < 20; ++x)
            ASSERT_EQ(tripled.pixel(3 * x + 1, 3 * y + 1) & 0xffffff, image.pixel(x, y) & 0xffffff) << x << "," << y;
}

TEST(Resampling, AnEdgeNextToNothingStaysItsColour)
{
    QImage image(8, 8, QImage::Format_ARGB32);
    image.fill(qRgba(0, 255, 0, 0));
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 4; ++x)
            image.setPixel(x, y, qRgba(255, 0, 0, 255));
    for (const QSize size : {QSize(29, 29), QSize(5, 5)}) {
        const QImage resampled = *Resampling::resampledExactly(image, size);
        for (int x = 0; x < size.width(); ++x) {
            const QRgb pixel = resampled.pixel(x, size.height() / 2); // premultiplied
            EXPECT_EQ(qGreen(pixel), 0);
            EXPECT_EQ(qBlue(pixel), 0);
            EXPECT_EQ(qRed(pixel), qAlpha(pixel)) << x;
        }
    }
}

} // namespace Kovrel
