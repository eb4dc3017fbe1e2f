#include "editor/crop/CropSizes.h"

#include <gtest/gtest.h>

#include <cmath>

namespace Kovrel {

TEST(CropSizes, TheRectangleInPixels)
{
    const struct {
        const char* name;
        Rect region; // of a canvas of 100 x 60 points, origin bottom-left
        double scale;
        QRect pixels; // of an image of 200 x 120, origin top-left
    } cases[] = {
        {"all", {0, 0, 100, 60}, 2, {0, 0, 200, 120}},
        {"lower left", {0, 0, 10, 20}, 2, {0, 80, 20, 40}},
        {"upper right", {90, 50, 10, 10}, 2, {180, 0, 20, 20}},
        {"outwards", {10.3, 20.3, 10, 10}, 2, {20, 59, 21, 21}},
        {"inside out", {20, 40, -10, -20}, 2, {20, 40, 20, 40}},
        {"over the edge", {-50, -50, 60, 70}, 2, {0, 80, 20, 40}},
        {"beside", {100, 0, 10, 10}, 2, {}},
        {"above", {0, 60, 10, 10}, 2, {}},
        {"flat", {10, 10, 0, 10}, 2, {}},
        {"no number", {std::nan(""), 0, 10, 10}, 2, {}},
        {"huge", {-1e300, -1e300, INFINITY, 2e300}, 2, {0, 0, 200, 120}},
        {"image is smaller", {0, 0, 100, 60}, 4, {0, 0, 200, 120}},
        {"beyond the image", {80, 0, 10, 10}, 4, {}},
    };

    for (const auto& [name, region, scale, pixels] : cases) {
        const QRect cut = CropSizes::pixelRect(region, {100, 60}, scale, {200, 120});
        if (pixels.isEmpty())
            EXPECT_TRUE(cut.isEmpty()) << name;
        else
            EXPECT_EQ(cut, pixels) << name;
    }
}

TEST(CropSizes, ANumberThatIsNearlyWholeIsThatNumber)
{
    // 0.3 points at 10/3 pixels each are a pixel, though doubles make it a little less or more.
    for (const double scale : {1.1, 1.25, 1.5, 1.7, 10.0 / 3})
        for (int pixel = 1; pixel < 50; ++pixel)
            EXPECT_EQ(CropSizes::pixelRect({pixel / scale, 0, 7 / scale, 10}, {100, 10}, scale, {500, 500}).x(), pixel)
                << scale;
}

TEST(CropSizes, PresetsAreTheCropAndThreeReductions)
{
    EXPECT_EQ(CropSizes::presets({1000, 600}),
              (std::array{QSize(1000, 600), QSize(750, 450), QSize(500, 300), QSize(250, 150)}));
    EXPECT_EQ(CropSizes::presets({10, 6}), (std::array{QSize(10, 6), QSize(8, 8), QSize(8, 8), QSize(8, 8)}));
    EXPECT_EQ(CropSizes::presets({33, 21}), (std::array{QSize(33, 21), QSize(25, 16), QSize(17, 11), QSize(8, 8)}));
}

TEST(CropSizes, AChoiceInPixels)
{
    const QSize crop(1000, 600);
    EXPECT_EQ(CropSizes::pixels(CropOutputSize(), crop), crop);
    EXPECT_EQ(CropSizes::pixels(CropOutputSize::ofFraction(0.5), crop), QSize(500, 300));
    EXPECT_EQ(CropSizes::pixels(CropOutputSize::ofWidth(333), crop), QSize(333, 200));
    EXPECT_EQ(CropSizes::pixels(CropOutputSize::ofHeight(100), crop), QSize(167, 100));
    EXPECT_EQ(CropSizes::pixels(CropOutputSize::ofFree({50, 700}), crop), QSize(50, 700));
    EXPECT_EQ(CropSizes::pixels(CropOutputSize::ofWidth(1), crop), QSize(1, 1));
    EXPECT_EQ(CropSizes::pixels(CropOutputSize::ofFree({-4, 0}), crop), QSize(1, 1));
}

TEST(CropSizes, SizesAreBounded)
{
    for (const auto& choice :
         {CropOutputSize::ofWidth(16384), CropOutputSize::ofHeight(2'000'000'000),
          CropOutputSize::ofFree({2'000'000'000, 2'000'000'000}), CropOutputSize::ofFraction(1e300)}) {
        const QSize size = CropSizes::pixels(choice, {1000, 600});
        EXPECT_LE(std::max(size.width(), size.height()), CropSizes::longestTypedSide);
        EXPECT_LE(qint64(size.width()) * size.height(), CropSizes::mostTypedPixels);
    }
    const QSize bounded = CropSizes::pixels(CropOutputSize::ofFraction(100), {1000, 600});
    EXPECT_NEAR(double(bounded.width()) / bounded.height(), 10.0 / 6, 0.001);
    EXPECT_EQ(CropSizes::pixels(CropOutputSize(), {20000, 10000}), QSize(20000, 10000));
}

TEST(CropSizes, WhatIsTyped)
{
    const std::pair<const char16_t*, std::optional<int>> cases[] = {
        {u"800", 800},   {u" 800 ", 800},
        {u"800px", 800}, {u"800 PX", 800},
        {u"0", 1},       {u"99999", 16384},
        {u"00012", 12},  {u"", {}},
        {u"px", {}},     {u"-5", {}},
        {u"12.5", {}},   {u"1,000", {}},
        {u"８００", {}}, {u"12345678901234567890", 16384},
    };
    for (const auto& [text, side] : cases)
        EXPECT_EQ(CropSizes::typedSide(text), side) << QString::fromUtf16(text).toStdString();
}

TEST(CropSizes, TheLockKeepsTheShape)
{
    const QSize crop(1000, 600);
    const CropOutputSize half = CropOutputSize::ofFraction(0.5);
    EXPECT_EQ(CropSizes::typedWidth(400, half, crop, true), CropOutputSize::ofWidth(400));
    EXPECT_EQ(CropSizes::typedHeight(90, half, crop, true), CropOutputSize::ofHeight(90));
    EXPECT_EQ(CropSizes::typedWidth(400, half, crop, false), CropOutputSize::ofFree({400, 300}));
    EXPECT_EQ(CropSizes::typedHeight(90, half, crop, false), CropOutputSize::ofFree({500, 90}));
    EXPECT_EQ(CropSizes::typedWidth(-7, half, crop, true), CropOutputSize::ofWidth(1));

    const CropOutputSize free = CropOutputSize::ofFree({400, 90});
    EXPECT_FALSE(CropSizes::isAspectLocked(free));
    EXPECT_TRUE(CropSizes::isAspectLocked(half));
    EXPECT_EQ(CropSizes::withAspectLock(true, free, crop), CropOutputSize::ofWidth(400));
    EXPECT_EQ(CropSizes::withAspectLock(false, half, crop), CropOutputSize::ofFree({500, 300}));
    EXPECT_EQ(CropSizes::withAspectLock(true, half, crop), half);
}

} // namespace Kovrel
