#include "recognition/codes/CodePlaces.h"

#include <gtest/gtest.h>

#include <random>

namespace Kovrel {

namespace {

QImage blank(QSize size)
{
    QImage image(size, QImage::Format_Grayscale8);
    image.fill(Qt::white);
    return image;
}

// Light and dark at random, in squares of `side` pixels.
void speckle(QImage& image, const QRect& area, int side)
{
    std::mt19937 random(1);
    for (int y = area.top(); y <= area.bottom(); y += side)
        for (int x = area.left(); x <= area.right(); x += side) {
            const uchar grey = random() % 2 ? 0 : 255;
            for (int line = y; line < y + side; ++line)
                std::fill_n(image.scanLine(line) + x, side, grey);
        }
}

} // namespace

TEST(CodePlaces, ACodeOfSmallModulesIsOne)
{
    QImage page = blank({640, 480});
    const QRect code(203, 101, 50, 50);
    speckle(page, code, 2);
    const auto places = CodePlaces::of(page);
    ASSERT_EQ(places.size(), 1u);
    EXPECT_TRUE(places.front().contains(code));
    EXPECT_LT(places.front().width(), 110);
}

TEST(CodePlaces, LinesOfTextAreNone)
{
    QImage page = blank({640, 480});
    for (int y = 20; y < 460; y += 22)
        speckle(page, {20, y, 600, 12}, 2);
    EXPECT_TRUE(CodePlaces::of(page).empty());
}

TEST(CodePlaces, AllOfABusyPictureIsOne)
{
    QImage page = blank({640, 480});
    speckle(page, page.rect(), 2);
    EXPECT_EQ(CodePlaces::of(page), std::vector{page.rect()});
}

// Memory behind a picture is no part of it: the rows and columns that fill no block count for nothing.
TEST(CodePlaces, SizesNeedNotBeMultiplesOfABlock)
{
    for (const QSize size : {QSize(399, 302), QSize(402, 303), QSize(401, 301)}) {
        std::vector<uchar> pixels(size_t(size.width() + 4) * size_t(size.height() + 2), 255);
        const auto end = size_t(size.width() + 4) * size_t(size.height());
        for (size_t at = end; at < pixels.size(); ++at)
            pixels[at] = at % 2 ? 0 : 255;
        const QImage view(pixels.data(), size.width(), size.height(), size.width() + 4, QImage::Format_Grayscale8);
        const QRect code(size.width() - 80, size.height() - 60, 60, 40);
        QImage page = view.copy();
        speckle(page, code, 2);
        const auto places = CodePlaces::of(page);
        ASSERT_EQ(places.size(), 1u);
        EXPECT_TRUE(page.rect().contains(places.front()));
        EXPECT_TRUE(CodePlaces::of(view).empty());
    }
}

TEST(CodePlaces, TinyAndBlankPicturesHaveNone)
{
    for (const QSize size : {QSize(1, 1), QSize(27, 3), QSize(26, 26), QSize(300, 200)})
        EXPECT_TRUE(CodePlaces::of(blank(size)).empty()) << size.width();
}

} // namespace Kovrel
