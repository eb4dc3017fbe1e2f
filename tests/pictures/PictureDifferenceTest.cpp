#include "tests/support/PictureDifference.h"
#include "tests/support/TempFolder.h"
#include "tests/support/TestPictures.h"

#include <gtest/gtest.h>

using namespace Kovrel;
using Testing::Texture;

namespace {

class PictureDifferenceTest : public testing::Test {
protected:
    PictureDifferenceTest() { qputenv("KOVREL_TEST_ARTIFACTS", folder.path().toUtf8()); }

    ~PictureDifferenceTest() override { qunsetenv("KOVREL_TEST_ARTIFACTS"); }

    QImage kept(const QString& name) const { return QImage(folder / name); }

    Testing::TempFolder folder;
    const QImage expected = Testing::testPicture({7, 5}, Texture::noise);
};

} // namespace

TEST_F(PictureDifferenceTest, WhatDiffersIsKeptAndSaidWhere)
{
    QImage actual = expected;
    actual.setPixel(3, 2, expected.pixel(3, 2) ^ 0x10);
    const auto verdict = Testing::samePicture(actual, expected, 15);
    ASSERT_FALSE(verdict);
    EXPECT_NE(std::string(verdict.message()).find("3,2"), std::string::npos);
    const QString place = "PictureDifferenceTest.WhatDiffersIsKeptAndSaidWhere";
    EXPECT_NE(std::string(verdict.message()).find((folder / place).toStdString()), std::string::npos);
    EXPECT_EQ(kept(place + "/expected.png"), expected);
    EXPECT_EQ(kept(place + "/actual.png"), actual);
    const QImage difference = kept(place + "/difference.png");
    EXPECT_EQ(difference.pixel(3, 2), 0xffffffff);
    EXPECT_EQ(difference.pixel(2, 2), 0xff000000);

    EXPECT_FALSE(Testing::samePicture(expected.copy(0, 0, 6, 5), expected, 255)) << "of another size";
    EXPECT_EQ(kept(place + "-2/actual.png").size(), QSize(6, 5)) << "the first one is still there";
}

TEST_F(PictureDifferenceTest, EachWayToCompareIsAsStrictAsItSays)
{
    QImage actual = expected;
    actual.setPixel(0, 0, expected.pixel(0, 0) ^ 0x10);
    EXPECT_TRUE(Testing::samePicture(actual, expected, 16));
    EXPECT_FALSE(Testing::sameColors(actual, expected));

    const QImage glass = Testing::translucent(expected);
    EXPECT_TRUE(Testing::sameColors(glass, expected));
    EXPECT_FALSE(Testing::samePicture(glass, expected));

    const QImage converted = expected.convertToFormat(QImage::Format_RGB888);
    EXPECT_TRUE(Testing::samePicture(converted, expected));
    EXPECT_FALSE(Testing::identicalPicture(converted, expected));
}
