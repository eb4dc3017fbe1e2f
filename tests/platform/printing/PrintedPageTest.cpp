#include "platform/printing/PrintedPage.h"

#include <gtest/gtest.h>

namespace Kovrel {

TEST(PrintedPageTest, APictureFillsThePageInOneDirectionAndStandsInItsMiddle)
{
    const QRectF page(10, 20, 200, 300);
    const std::pair<QSize, QRectF> cases[] = {
        {{100, 100}, {10, 70, 200, 200}},
        {{4000, 1000}, {10, 145, 200, 50}},
        {{1000, 3000}, {60, 20, 100, 300}},
        {{1, 1}, {10, 70, 200, 200}},
    };
    for (const auto& [picture, place] : cases)
        EXPECT_EQ(PrintedPage::place(picture, page), place);
}

TEST(PrintedPageTest, TheRestOfThePageStaysBlank)
{
    QImage page(100, 200, QImage::Format_RGB32);
    page.fill(Qt::white);
    QImage picture(40, 20, QImage::Format_ARGB32);
    picture.fill(Qt::red);
    ASSERT_TRUE(PrintedPage::draw(page, picture));
    EXPECT_EQ(page.pixelColor(2, 78), Qt::red);
    EXPECT_EQ(page.pixelColor(97, 121), Qt::red);
    EXPECT_EQ(page.pixelColor(50, 72), Qt::white);
    EXPECT_EQ(page.pixelColor(50, 127), Qt::white);
}

TEST(PrintedPageTest, ADeviceThatTakesNoPageIsTold)
{
    QImage none;
    EXPECT_FALSE(PrintedPage::draw(none, QImage(1, 1, QImage::Format_RGB32)));
}

} // namespace Kovrel
