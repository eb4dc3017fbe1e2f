#include "platform/ImageCodec.h"
#include "tests/support/PictureDifference.h"
#include "tests/support/TempFolder.h"
#include "tests/support/TestPictures.h"

#include <QBuffer>
#include <QFile>
#include <QImageWriter>
#include <QtEndian>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <zlib.h>

namespace Kovrel {

using Testing::testPicture;
using Testing::Texture;

namespace {

constexpr std::array formats{ImageFormat::png, ImageFormat::jpeg, ImageFormat::heic, ImageFormat::tiff};

std::string nameOf(ImageFormat format)
{
    return rawString(format).toStdString();
}

bool isLossless(ImageFormat format)
{
    return format == ImageFormat::png || format == ImageFormat::tiff;
}

QImage roundTrip(const QImage& image, ImageFormat format, double quality = 0.95)
{
    const auto file = ImageCodec::encode(image, format, quality);
    EXPECT_TRUE(file) << nameOf(format) << ": " << (file ? "" : qPrintable(file.error().message));
    const auto back = file ? ImageCodec::decode(*file) : std::unexpected(ImageCodec::Failure{});
    EXPECT_TRUE(back) << nameOf(format) << ": " << (back ? "" : qPrintable(back.error().message));
    return back.value_or(QImage());
}

QImage premultiplied(const QImage& image)
{
    // Through bytes, as `pixel` answers straight colours.
    QImage result = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    result.reinterpretAsFormat(QImage::Format_ARGB32);
    return result;
}

QByteArray bytesOf(const QImage& image, ImageFormat format)
{
    return ImageCodec::encode(image, format, 0.8).value_or(QByteArray());
}

QByteArray writtenByToolkit(const QImage& image, const char* format)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter(&buffer, format).write(image);
    return buffer.data();
}

} // namespace

TEST(ImageCodec, PicturesComeBackInEveryFormatAndSize)
{
    for (const ImageFormat format : formats) {
        for (const QSize size : {QSize(1, 1), QSize(1, 300), QSize(300, 1), QSize(63, 65), QSize(640, 480)}) {
            const QImage image = testPicture(size, Texture::flat);
            const QImage back = roundTrip(image, format);
            EXPECT_TRUE(Testing::samePicture(back, image, isLossless(format) ? 0 : 4))
                << nameOf(format) << " " << size.width() << "x" << size.height();
            EXPECT_EQ(back.format(), QImage::Format_RGB32);
        }
    }
    for (const ImageFormat format : {ImageFormat::png, ImageFormat::tiff}) {
        const QImage noise = testPicture({301, 199}, Texture::noise);
        EXPECT_TRUE(Testing::samePicture(roundTrip(noise, format), noise)) << nameOf(format);
        const QImage alpha = Testing::translucent(noise);
        const QImage back = roundTrip(alpha, format);
        if (format == ImageFormat::png)
            EXPECT_TRUE(Testing::samePicture(back, alpha));
        EXPECT_TRUE(Testing::samePicture(premultiplied(back), premultiplied(alpha), 1)) << nameOf(format);
    }
}

TEST(ImageCodec, TransparencyIsKeptOrLaidOverWhite)
{
    QImage image(64, 64, QImage::Format_ARGB32);
    image.fill(qRgba(0, 0, 200, 100));
    for (const ImageFormat format : formats) {
        const QImage back = roundTrip(image, format);
        const QRgb expected = format == ImageFormat::jpeg ? qRgb(155, 155, 233) : qRgba(0, 0, 200, 100);
        QImage plain(64, 64, QImage::Format_ARGB32);
        plain.fill(expected);
        EXPECT_TRUE(
            Testing::samePicture(back.convertToFormat(QImage::Format_ARGB32), plain, isLossless(format) ? 1 : 6))
            << nameOf(format);
        EXPECT_EQ(ImageCodec::hasVisibleTransparency(back), format != ImageFormat::jpeg);
    }
}

TEST(ImageCodec, ProfileAndDensityAreKept)
{
    QImage image = testPicture({80, 60}, Texture::gradient);
    image.setColorSpace(QColorSpace::DisplayP3);
    image.setDotsPerMeterX(5700);
    image.setDotsPerMeterY(2900);
    for (const ImageFormat format : formats) {
        const QImage back = roundTrip(image, format);
        EXPECT_EQ(back.colorSpace().primaries(), QColorSpace::Primaries::DciP3D65) << nameOf(format);
        EXPECT_EQ(back.dotsPerMeterX(), 5700) << nameOf(format);
        EXPECT_EQ(back.dotsPerMeterY(), 2900) << nameOf(format);
    }
}

TEST(ImageCodec, QualityTradesSizeForColour)
{
    // One-pixel stripes of red and blue: halved colour resolution turns them to violet.
    QImage stripes(64, 64, QImage::Format_RGB32);
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x)
            stripes.setPixel(x, y, x % 2 == 0 ? qRgb(220, 0, 0) : qRgb(0, 0, 220));
    for (const ImageFormat format : {ImageFormat::jpeg, ImageFormat::heic}) {
        EXPECT_TRUE(Testing::samePicture(roundTrip(stripes, format, 1.0), stripes, 40)) << nameOf(format);
        EXPECT_GE(Testing::largestDifference(roundTrip(stripes, format, 0.8), stripes), 60) << nameOf(format);
        const QImage photo = testPicture({200, 200}, Texture::noise);
        EXPECT_LT(ImageCodec::encode(photo, format, 0.2)->size(), ImageCodec::encode(photo, format, 0.9)->size() / 2);
    }
}

TEST(ImageCodec, CutOffAndAlteredFilesNeverCrash)
{
    const QImage image = Testing::translucent(testPicture({90, 70}, Texture::noise));
    for (const ImageFormat format : formats) {
        const QByteArray whole = bytesOf(image, format);
        for (qsizetype size = 0; size < whole.size(); size += whole.size() / 60 + 1) {
            const auto result = ImageCodec::decode(whole.left(size));
            if (format == ImageFormat::png || size < 20)
                EXPECT_FALSE(result) << nameOf(format) << " cut to " << size;
        }
        QRandomGenerator random(3);
        for (int round = 0; round < 60; ++round) {
            QByteArray altered = whole;
            for (int change = 0; change < 4; ++change)
                altered[random.bounded(int(altered.size()))] = char(random.generate());
            const auto result = ImageCodec::decode(altered);
            EXPECT_TRUE(result || !result.error().message.isEmpty());
        }
    }
}

TEST(ImageCodec, FilesThatAreNoPictureAreFailures)
{
    for (const QByteArray& data :
         {QByteArray(), QByteArray("x"), QByteArray("\x89PNG\r\n\x1a\n"), QByteArray("\xFF\xD8\xFF\xE0"),
          QByteArray("II*\0\x08\0\0\0", 8),
          QByteArray("\0\0\0\x18"
                     "ftypheic",
                     12),
          QByteArray(5000, '\0'), QByteArray("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>"),
          QByteArray("GIF89a")}) {
        const auto result = ImageCodec::decode(data);
        ASSERT_FALSE(result) << data.toHex().constData();
        EXPECT_FALSE(result.error().message.isEmpty());
    }
}

TEST(ImageCodec, AHugePictureIsRefusedBeforeItTakesMemory)
{
    for (const quint32 side : {12'000u, 100'000u}) {
        // A PNG header that promises a square of this side, with a right checksum.
        QByteArray file = bytesOf(testPicture({1, 1}, Texture::flat), ImageFormat::png);
        qToBigEndian(side, file.data() + 16);
        qToBigEndian(side, file.data() + 20);
        qToBigEndian(quint32(crc32(0, reinterpret_cast<const Bytef*>(file.constData() + 12), 17)), file.data() + 29);
        const auto result = ImageCodec::decode(file);
        ASSERT_FALSE(result) << side;
        EXPECT_TRUE(result.error().message.contains("too large")) << qPrintable(result.error().message);
    }
}

TEST(ImageCodec, TheContentDecidesNotTheName)
{
    const Testing::TempFolder folder;
    const QImage image = testPicture({40, 30}, Texture::blocks);
    for (const char* format : {"png", "tiff", "bmp", "webp"}) {
        QFile file(folder / "picture.jpeg");
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(writtenByToolkit(image, format));
        file.close();
        const auto result = ImageCodec::decodeFile(file.fileName());
        ASSERT_TRUE(result) << format;
        EXPECT_TRUE(Testing::samePicture(*result, image, qstrcmp(format, "webp") == 0 ? 90 : 0)) << format;
    }
}

TEST(ImageCodec, WhatIsNoRegularFileIsRefusedAtOnce)
{
    const Testing::TempFolder folder;
    ASSERT_EQ(::mkfifo(QFile::encodeName(folder / "pipe"), 0600), 0);
    for (const QString& path : {folder.path(), folder / "pipe", QString("/dev/zero"), folder / "missing", QString()})
        EXPECT_FALSE(ImageCodec::decodeFile(path)) << qPrintable(path);
}

TEST(ImageCodec, SixteenBitsAndPalettesBecomePlainPixels)
{
    const QImage image = testPicture({33, 21}, Texture::fewColours);
    for (const auto format :
         {QImage::Format_RGBX64, QImage::Format_Indexed8, QImage::Format_Grayscale16, QImage::Format_Mono}) {
        const QImage source = image.convertToFormat(format);
        for (const char* container : {"png", "tiff"}) {
            const auto result = ImageCodec::decode(writtenByToolkit(source, container));
            ASSERT_TRUE(result) << container << " " << format;
            EXPECT_EQ(result->format(), QImage::Format_RGB32);
            EXPECT_TRUE(Testing::samePicture(*result, source.convertToFormat(QImage::Format_RGB32), 1))
                << container << " " << format;
        }
    }
}

TEST(ImageCodec, OrientationIsApplied)
{
    QImage image(80, 40, QImage::Format_RGB32);
    image.fill(Qt::blue);
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 40; ++x)
            image.setPixel(x, y, qRgb(255, 0, 0));
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpeg");
    writer.setQuality(100);
    writer.setTransformation(QImageIOHandler::TransformationRotate90);
    ASSERT_TRUE(writer.write(image));
    const auto result = ImageCodec::decode(buffer.data());
    ASSERT_TRUE(result);
    ASSERT_EQ(result->size(), QSize(40, 80));
    EXPECT_GT(qRed(result->pixel(20, 10)), 200) << "the left half turned to the top";
    EXPECT_GT(qBlue(result->pixel(20, 70)), 200);
}

TEST(ImageCodec, OnePixelMakesTransparencyVisible)
{
    for (const auto format : {QImage::Format_ARGB32, QImage::Format_ARGB32_Premultiplied, QImage::Format_RGBA8888}) {
        QImage image(37, 11, format);
        image.fill(Qt::white);
        EXPECT_FALSE(ImageCodec::hasVisibleTransparency(image)) << format;
        image.setPixelColor(36, 10, QColor(255, 255, 255, 254));
        EXPECT_TRUE(ImageCodec::hasVisibleTransparency(image)) << format;
    }
    EXPECT_FALSE(ImageCodec::hasVisibleTransparency(QImage(5, 5, QImage::Format_RGB32)));
}

} // namespace Kovrel
