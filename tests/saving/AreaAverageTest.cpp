#include "saving/AreaAverage.h"
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

TEST(AreaAverage, EachPixelIsTheMeanOfItsArea)
{
    for (const double factor : {1.25, 1.5, 2.0, 3.0, 1.01, 7.3}) {
        const QImage image = testPicture({67, 41}, Texture::noise);
        const QImage reduced = AreaAverage::reduced(image, factor).value();
        EXPECT_EQ(reduced.size(), QSize(qRound(67 / factor), qRound(41 / factor))) << factor;
        QImage expected(reduced.size(), QImage::Format_RGB32);
        const double stepX = 67.0 / reduced.width();
        const double stepY = 41.0 / reduced.height();
        for (int y = 0; y < reduced.height(); ++y)
            for (int x = 0; x < reduced.width(); ++x)
                expected.setPixel(x, y, meanOver(image, x * stepX, y * stepY, (x + 1) * stepX, (y + 1) * stepY));
        EXPECT_LE(Testing::largestDifference(reduced, expected), 1) << factor;
    }
}

TEST(AreaAverage, WhatIsInvisibleHasNoColour)
{
    QImage image(2, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, qRgba(255, 0, 0, 255));
    image.setPixel(1, 0, qRgba(0, 255, 0, 0));
    const QColor mean = AreaAverage::reduced(image, 2)->pixelColor(0, 0);
    EXPECT_NEAR(mean.alpha(), 128, 1);
    EXPECT_EQ(mean.red(), 255);
    EXPECT_EQ(mean.green(), 0);
}

TEST(AreaAverage, FlatPicturesStayFlatAndKeepTheirProfileAndDensity)
{
    QImage image = testPicture({1001, 3}, Texture::flat);
    image.setColorSpace(QColorSpace::AdobeRgb);
    image.setDotsPerMeterX(1234);
    image.setDotsPerMeterY(4321);
    const QImage reduced = AreaAverage::reduced(image, 1.75).value();
    EXPECT_EQ(Testing::largestDifference(reduced, testPicture(reduced.size(), Texture::flat)), 0);
    EXPECT_EQ(reduced.colorSpace(), QColorSpace(QColorSpace::AdobeRgb));
    EXPECT_EQ(reduced.dotsPerMeterX(), 1234);
    EXPECT_EQ(reduced.dotsPerMeterY(), 4321);
}

TEST(AreaAverage, NothingVanishesAndNothingGrows)
{
    EXPECT_EQ(AreaAverage::reduced(testPicture({1, 900}, Texture::noise), 4)->size(), QSize(1, 225));
    for (const double factor : {1.0, 0.5, 0.0, -2.0, std::nan(""), double(INFINITY)})
        EXPECT_FALSE(AreaAverage::reduced(testPicture({8, 8}, Texture::flat), factor)) << factor;
    EXPECT_FALSE(AreaAverage::reduced(QImage(), 2));
}

} // namespace Kovrel
