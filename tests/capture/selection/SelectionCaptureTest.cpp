#include "capture/selection/SelectionCapture.h"
#include "tests/support/FakeDesktop.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

QImage filled(QSize size, QRgb colour)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour & 0xffffff); // the unused byte as servers leave it
    return image;
}

const FrozenScreens screens{{1, {0, 0, 100, 80}, filled({100, 80}, 0xff0000)},
                            {2, {100, 40, 60, 50}, filled({60, 50}, 0x0000ff)}};

struct SelectionCaptureTest : testing::Test {
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    Testing::FakeDesktop desktop{loop};
    Testing::FakeWindows& windows = desktop.windows();
    SelectionCapture capture{loop, workers, windows};

    std::optional<QImage> grab(std::vector<WindowInfo> picked)
    {
        std::optional<QImage> picture;
        bool isAnswered = false;
        capture.grabWindows(std::move(picked), screens, [&](std::optional<QImage> given) {
            picture = std::move(given);
            isAnswered = true;
        });
        loop.runPosted();
        EXPECT_TRUE(isAnswered);
        return picture;
    }
};

} // namespace

TEST_F(SelectionCaptureTest, CutsAcrossScreensAndLeavesWhatIsOnNoneBlack)
{
    const auto image = SelectionCapture::cut({90, 30, 20, 20}, screens);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), QSize(20, 20));
    EXPECT_EQ(reinterpret_cast<const QRgb*>(image->constScanLine(0))[0], 0xffff0000u) << "opaque to the last bit";
    EXPECT_EQ(image->pixel(15, 15), 0xff0000ffu);
    EXPECT_EQ(image->pixel(15, 5), 0xff000000u);
    EXPECT_FALSE(SelectionCapture::cut({200, 0, 10, 10}, screens));
    EXPECT_FALSE(SelectionCapture::cut({0, 0, 10, 10}, {})) << "nothing was frozen";
}

TEST_F(SelectionCaptureTest, AWindowThatIsGoneIsNoPictureButAMenuWas)
{
    windows.images[7] = filled({30, 20}, 0x00ff00);
    EXPECT_EQ(grab({{.id = 7, .pixelRect = {5, 5, 30, 20}}})->size(), QSize(30, 20));
    EXPECT_FALSE(grab({{.id = 8, .pixelRect = {5, 5, 30, 20}}}));
    const auto menu = grab({{.id = 9, .pixelRect = {95, 50, 10, 10}, .type = WindowType::menu}});
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu->pixel(0, 0), 0xffff0000u);
    EXPECT_EQ(menu->pixel(9, 9), 0xff0000ffu);
    EXPECT_FALSE(grab({{.id = 7, .pixelRect = {5, 5, 30, 20}}, {.id = 8, .pixelRect = {40, 5, 30, 20}}}))
        << "one of a group is gone";
}

} // namespace Kovrel
