#include "platform/codecs/PngEncoder.h"
#include "tests/support/PictureDifference.h"
#include "tests/support/TestPictures.h"

#include <gtest/gtest.h>

namespace Kovrel {

using Testing::testPicture;
using Testing::Texture;

namespace {

// Read by the toolkit, which shares no code with the encoder.
QImage readBack(const QImage& image)
{
    const auto file = PngEncoder::encode(image);
    return file ? QImage::fromData(*file, "png") : QImage();
}

enum ColourType { rgb = 2, palette = 3, rgba = 6 };

int colourType(const QImage& image)
{
    return PngEncoder::encode(image)->at(25);
}

constexpr std::array textures{Texture::noise, Texture::fewColours, Texture::blocks, Texture::gradient, Texture::flat};

} // namespace

TEST(PngEncoder, EveryPixelSurvivesWhateverTheSize)
{
    // Fewer rows than strips, rows longer than the window, more bytes than a stored block holds, many strips.
    const std::vector<QSize> sizes{{1, 1},     {1, 5000}, {5000, 1},  {2, 3},   {255, 257},
                                   {257, 255}, {7, 900},  {20000, 3}, {33, 33}, {1031, 701}};
    for (const QSize size : sizes) {
        for (const Texture texture : textures) {
            const QImage opaque = testPicture(size, texture);
            EXPECT_TRUE(Testing::samePicture(readBack(opaque), opaque))
                << size.width() << "x" << size.height() << " texture " << int(texture);
            const QImage alpha = Testing::translucent(opaque);
            EXPECT_TRUE(Testing::samePicture(readBack(alpha), alpha))
                << size.width() << "x" << size.height() << " translucent, texture " << int(texture);
        }
    }
}

TEST(PngEncoder, EveryPixelSurvivesWhateverTheContent)
{
    QRandomGenerator random(42);
    for (quint32 round = 0; round < 120; ++round) {
        const QSize size(1 + random.bounded(round % 10 == 0 ? 3000 : 300), 1 + random.bounded(300));
        QImage image = testPicture(size, textures[random.bounded(int(textures.size()))], round);
        for (int patch = random.bounded(6); patch > 0; --patch) {
            const QImage other = testPicture({1 + random.bounded(80), 1 + random.bounded(80)},
                                             textures[random.bounded(int(textures.size()))], round + 1);
            const QPoint corner(random.bounded(size.width()), random.bounded(size.height()));
            for (int y = 0; y < other.height() && corner.y() + y < size.height(); ++y)
                for (int x = 0; x < other.width() && corner.x() + x < size.width(); ++x)
                    image.setPixel(corner + QPoint(x, y), other.pixel(x, y));
        }
        EXPECT_TRUE(Testing::samePicture(readBack(image), image)) << "round " << round;
    }
}

TEST(PngEncoder, TheLayoutFollowsThePixelsNotTheirFormat)
{
    const QImage noise = testPicture({64, 64}, Texture::noise);
    const QImage few = testPicture({64, 64}, Texture::fewColours);
    QImage exactly256(256, 2, QImage::Format_RGB32);
    for (int x = 0; x < 256; ++x)
        for (int y = 0; y < 2; ++y)
            exactly256.setPixel(x, y, qRgb(x, 255 - x, 7));
    QImage oneMore = exactly256;
    oneMore.setPixel(3, 1, qRgb(1, 2, 3));
    QImage junkInAlpha = noise;
    for (int x = 0; x < 64; ++x)
        reinterpret_cast<QRgb*>(junkInAlpha.scanLine(5))[x] &= 0xFFFFFF;

    EXPECT_EQ(colourType(noise), rgb);
    EXPECT_EQ(colourType(noise.convertToFormat(QImage::Format_ARGB32)), rgb);
    EXPECT_EQ(colourType(few), palette);
    EXPECT_EQ(colourType(few.convertToFormat(QImage::Format_ARGB32_Premultiplied)), palette);
    EXPECT_EQ(colourType(exactly256), palette);
    EXPECT_EQ(colourType(oneMore), rgb);
    EXPECT_EQ(colourType(Testing::translucent(few)), rgba);
    EXPECT_EQ(colourType(junkInAlpha), rgb) << "the fourth byte of a screen's pixels means nothing";
    EXPECT_TRUE(Testing::samePicture(readBack(exactly256), exactly256));
    EXPECT_TRUE(Testing::samePicture(readBack(oneMore), oneMore));
}

TEST(PngEncoder, OtherPixelFormatsAreConverted)
{
    const QImage picture = testPicture({50, 40}, Texture::blocks);
    for (const auto format : {QImage::Format_RGB888, QImage::Format_RGBA8888, QImage::Format_Grayscale8,
                              QImage::Format_Indexed8, QImage::Format_RGB16, QImage::Format_RGBA64}) {
        const QImage image = picture.convertToFormat(format);
        const QImage back = readBack(image);
        EXPECT_TRUE(Testing::samePicture(back, image.convertToFormat(QImage::Format_RGB32))) << format;
    }
}

TEST(PngEncoder, PremultipliedPixelsAreWrittenStraight)
{
    QImage image(1, 1, QImage::Format_ARGB32_Premultiplied);
    image.setPixel(0, 0, qRgba(255, 0, 0, 128));
    EXPECT_EQ(readBack(image).convertToFormat(QImage::Format_ARGB32).pixel(0, 0), qRgba(255, 0, 0, 128));
}

TEST(PngEncoder, ANullImageIsAFailure)
{
    EXPECT_FALSE(PngEncoder::encode(QImage()));
}

} // namespace Kovrel
