#pragma once

#include <QImage>

#include <gtest/gtest.h>

namespace Kovrel::Testing {

// The largest difference of any channel, alpha included; 256 between pictures of different sizes.
int largestDifference(const QImage& one, const QImage& other);

// Assertions about whole pictures, for EXPECT_TRUE. One that fails leaves `expected`, `actual` and `difference` as PNG
// files in a folder named after the test, below $KOVREL_TEST_ARTIFACTS or else the build folder's `failed-pictures`,
// and says where. So they are not for pictures that ought to differ.

// No channel differs by more than the tolerance, alpha included.
testing::AssertionResult samePicture(const QImage& actual, const QImage& expected, int tolerance = 0);

// Red, green and blue are the same, whatever the alpha.
testing::AssertionResult sameColors(const QImage& actual, const QImage& expected);

// Bit by bit, in the same format.
testing::AssertionResult identicalPicture(const QImage& actual, const QImage& expected);

} // namespace Kovrel::Testing
