#include "imaging/Pixelation.h"

#include "tests/support/TestPictures.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace Kovrel {

namespace {

// The definition, pixel by pixel: the mean of the square that the pixel lies in, the edge's pixels repeated outside.
QColor meanAround(const QImage& image, int x, int y, int cell)
{
    const auto start = [cell](int pixel, int length) {
        const int middle = (length + 1) / 2;
        return middle + int(std::floor(double(pixel - middle) / cell)) * cell;
    };
    std::array<double, 4> sum{};
    for (int row = 0; row < cell; ++row)
        for (int column = 0; column < cell; ++column) {
            const QRgb pixel = image.pixel(std::clamp(start(x, image.width()) + column, 0, image.width() - 1),
                                           std::clamp(start(y, image.height()) + row, 0, image.height() - 1));
            sum[0] += qRed(pixel);
            sum[1] += qGreen(pixel);
            sum[2] += qBlue(pixel);
        }
    const auto mean = [&](size_t channel) { return int(std::lround(sum[channel] / (cell * cell))); };
    return {mean(0), mean(1), mean(2)};
}

} // namespace

TEST(PixelationTest, SquaresHaveTheMeanOfWhatTheyCover)
{
    for (const QSize size : {QSize(50, 34), QSize(48, 36), QSize(7, 61), QSize(1, 1)})
        for (const int cell : {1, 2, 12, 80}) {
            const QImage image =
                Testing::testPicture(size, Testing::Texture::noise).convertToFormat(QImage::Format_RGB32);
            const QImage result = Pixelation::pixelated(image, cell);
            ASSERT_EQ(result.size(), size);
            for (int y = 0; y < size.height(); ++y)
                for (int x = 0; x < size.width(); ++x)
                    ASSERT_EQ(result.pixelColor(x, y).name(), meanAround(image, x, y, cell).name())
                        << size.width() << " wide, cell " << cell << " at " << x << ',' << y;
        }
}

TEST(PixelationTest, OddSizesAreNoFault)
{
    const QImage image = Testing::translucent(Testing::testPicture({20, 10}, Testing::Texture::noise));
    EXPECT_TRUE(Pixelation::pixelated(QImage(), 12).isNull());
    for (const double cell : {-1.0, 0.0, 0.5, 1.5, 1e300, std::nan("")})
        EXPECT_EQ(Pixelation::pixelated(image, cell).size(), image.size()) << cell;
    // One square: all pixels are equal.
    const QImage whole = Pixelation::pixelated(image, 1e300);
    EXPECT_EQ(whole.pixel(0, 0), whole.pixel(9, 4));
}

} // namespace Kovrel
