#include "cards/CardFace.h"
#include "tests/support/TestPictures.h"

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

// In levels of 255.
int largestDifference(const QImage& one, const QImage& other)
{
    int largest = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x) {
            const QColor a = one.pixelColor(x, y);
            const QColor b = other.pixelColor(x, y);
            largest = std::max(
                {largest, std::abs(a.red() - b.red()), std::abs(a.green() - b.green()), std::abs(a.blue() - b.blue())});
        }
    return largest;
}

} // namespace

TEST(CardFaceTest, TheCardIsAsHighAsItsPictureAsksWithinBounds)
{
    struct Case {
        QSize capture;
        double height;
        QSize face; // at scale 2
    };

    const Case cases[] = {
        {{3840, 2160}, 127, {408, 230}}, {{300, 600}, 164, {152, 304}}, {{1400, 200}, 92, {408, 58}},
        {{40, 24}, 134, {40, 24}},       {{3000, 1}, 92, {408, 1}},
    };
    for (const Case& c : cases) {
        const QSizeF card = CardFace::cardSize(c.capture);
        EXPECT_EQ(card, QSizeF(216, c.height));
        const QImage face = CardFace::render(Testing::testPicture(c.capture, Testing::Texture::flat), 2, card, 2);
        EXPECT_EQ(face.size(), c.face) << c.capture.width();
    }
    EXPECT_TRUE(CardFace::render({}, 1, {216, 100}, 1).isNull());
}

TEST(CardFaceTest, ALargePictureIsTheSameAsIfItWereScaledInOnePiece)
{
    for (const QSize size : {QSize(2400, 1600), QSize(2401, 1600), QSize(1400, 2400), QSize(1601, 1601)}) {
        const QImage capture = Testing::testPicture(size, Testing::Texture::blocks);
        const QImage face = CardFace::render(capture, 1, CardFace::cardSize(size), 1);
        const QImage whole = capture.scaled(face.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        EXPECT_LE(largestDifference(face, whole), 4) << size.width() << " x " << size.height();
    }
}

} // namespace Kovrel
