#include "platform/x11/X11Displays.h"
#include "platform/x11/windows/X11DesktopPicture.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/PaintedScreen.h"
#include "tests/support/Patterns.h"
#include "tests/support/VirtualDisplay.h"

#include <gtest/gtest.h>

namespace Kovrel {

using Testing::pattern;
using Testing::patternAt;

namespace {

// The primary display lies right of a scaled one.
struct DesktopPictureTest : testing::Test {
    DesktopPictureTest()
    {
        server.setMonitors({{"MAIN", {400, 100, 600, 500}}, {"LEFT", {0, 0, 400, 300}}});
        displays.refresh();
    }

    std::optional<QImage> grab(quint32 display, int maxPixelSize)
    {
        X11DesktopPicture service(loop, workers,
                                  std::make_shared<X11ImageReader>(std::make_shared<X11Connection>(server.name())),
                                  displays, [this](const Display&, const DisplayList&) { return settings; });
        std::optional<std::optional<QImage>> answer;
        service.grab(display, maxPixelSize, [&](std::optional<QImage> image) { answer = std::move(image); });
        workers.runAll();
        loop.runPosted();
        return answer.value();
    }

    quint32 idOf(size_t index) const { return displays.all()[index].id; }

    std::optional<QImage> settings; // what those of the desktop tell
    Testing::VirtualDisplay server{{1000, 700}};
    Testing::PaintedScreen screen{server.name()};
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    X11Displays displays{std::make_unique<X11Connection>(server.name()),
                         [](const QString& name) { return name == "LEFT" ? 2.0 : 1.0; }};
};

} // namespace

TEST_F(DesktopPictureTest, IsTheDisplaysPartBehindAllWindows)
{
    EXPECT_EQ(grab(idOf(0), 600), std::nullopt) << "none was set";
    screen.setRootPicture(pattern({1000, 700}));
    screen.show({.pixels = {0, 0, 1000, 700}, .colour = Qt::yellow});
    const auto main = grab(idOf(0), 600);
    ASSERT_TRUE(main);
    EXPECT_EQ(main->size(), QSize(600, 500));
    EXPECT_EQ(main->pixel(0, 0), patternAt(400, 100) | 0xff000000);
    EXPECT_EQ(main->pixel(599, 499), patternAt(999, 599) | 0xff000000);
    const auto left = grab(idOf(1), 400); // 200 x 150 points
    EXPECT_EQ(left->size(), QSize(400, 300));
    EXPECT_EQ(left->pixel(399, 299), patternAt(399, 299) | 0xff000000);
    EXPECT_EQ(grab(idOf(1), 100)->size(), QSize(100, 75));
    EXPECT_EQ(grab(idOf(1), 5000)->size(), QSize(600, 450)) << "at most three times the points";
    EXPECT_EQ(grab(12345, 600), std::nullopt) << "no such display";
}

TEST_F(DesktopPictureTest, ASmallPictureRepeats)
{
    screen.setRootPicture(pattern({150, 70}));
    const auto image = grab(idOf(0), 600);
    ASSERT_TRUE(image);
    for (const QPoint point : {QPoint(0, 0), QPoint(49, 39), QPoint(50, 40), QPoint(599, 499)})
        EXPECT_EQ(image->pixel(point), patternAt((400 + point.x()) % 150, (100 + point.y()) % 70) | 0xff000000);
}

TEST_F(DesktopPictureTest, TheSettingsComeBeforeTheRootAndThatBeforeAnOpaqueDesktopWindow)
{
    const auto colour = [this] { return grab(idOf(0), 600).value_or(QImage()).pixelColor(300, 250); };
    screen.show({.pixels = {0, 0, 1000, 700}, .colour = Qt::blue, .type = "_NET_WM_WINDOW_TYPE_DESKTOP"});
    screen.show({.pixels = {0, 0, 1000, 700}, .colour = QColor(0, 0, 0, 40), .type = "_NET_WM_WINDOW_TYPE_DESKTOP"});
    screen.show({.pixels = {0, 0, 1000, 700}, .colour = Qt::yellow});
    EXPECT_EQ(colour(), QColor(Qt::blue)) << "icons on nothing are no picture";
    QImage green(1000, 700, QImage::Format_RGB32);
    green.fill(Qt::green);
    screen.setRootPicture(green);
    EXPECT_EQ(colour(), QColor(Qt::green));
    settings = QImage(1200, 1000, QImage::Format_RGB32);
    settings->fill(Qt::red);
    EXPECT_EQ(colour(), QColor(Qt::red));
    EXPECT_EQ(grab(idOf(0), 600)->size(), QSize(600, 500));
}

} // namespace Kovrel
