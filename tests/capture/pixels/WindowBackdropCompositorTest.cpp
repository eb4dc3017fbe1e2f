#include "capture/pixels/WindowBackdropCompositor.h"
#include "tests/support/FakeDesktop.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/PictureDifference.h"
#include "tests/support/TempFolder.h"
#include "tests/support/TestPictures.h"

#include <QPainter>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

using namespace std::chrono_literals;
using testing::ElementsAre;
using Compositor = WindowBackdropCompositor;

namespace {

// A window of one colour with round corners.
QImage window(QSize size, double radius, QColor colour = Qt::green)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(image.rect(), radius, radius);
    return image;
}

QImage filled(QSize size, QColor colour)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

struct WindowBackdropCompositorTest : testing::Test {
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    Testing::TempFolder folder;
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};
    Testing::FakeDesktop surroundings{loop};
    Testing::FakeDesktopPicture& desktop = surroundings.picture();
    Testing::FakeDisplays& displays = surroundings.displays();
    Compositor compositor{loop, workers, desktop, displays, preferences};

    ComposedCapture compose(const QImage& image, WindowBackdropStyle style, std::optional<QImage> wallpaper = {})
    {
        std::optional<ComposedCapture> answer;
        compositor.compose(image, style, wallpaper, [&](ComposedCapture capture) { answer = std::move(capture); });
        loop.runPosted();
        EXPECT_FALSE(answer) << "composed on the main thread";
        workers.runAll();
        loop.runPosted();
        return answer.value();
    }

    std::vector<Size> wallpapers;

    void ask(quint32 displayID, int maxPixelSize)
    {
        compositor.captureWallpaper(displayID, maxPixelSize, [this](std::optional<QImage> image) {
            wallpapers.push_back(image ? Size{double(image->width()), double(image->height())} : Size{});
        });
    }

    // How often the desktop is grabbed for a question now.
    size_t grabsFor(quint32 displayID, int maxPixelSize)
    {
        desktop.grabs.clear();
        ask(displayID, maxPixelSize);
        loop.runPosted();
        return desktop.grabs.size();
    }
};

} // namespace

TEST_F(WindowBackdropCompositorTest, RoomAndShadowGrowWithTheWindowWithinLimits)
{
    struct Case {
        QSize window;
        int padding;
        double blurRadius;
        double offset;
    };

    for (const Case& c : {Case{{300, 200}, 48, 15, 4}, Case{{2000, 1200}, 140, 72, 24}, Case{{100, 100}, 48, 12, 4},
                          Case{{600, 3000}, 210, 72, 24}, Case{{1000, 700}, 70, 50, 12}, Case{{1, 1}, 48, 12, 4}}) {
        EXPECT_EQ(Compositor::canvasPadding(c.window), c.padding) << c.window.width();
        EXPECT_DOUBLE_EQ(Compositor::shadow(c.window).blurRadius, c.blurRadius) << c.window.width();
        EXPECT_DOUBLE_EQ(Compositor::shadow(c.window).offset, c.offset) << c.window.width();
    }
}

TEST_F(WindowBackdropCompositorTest, ReadsTheRadiusOfACorner)
{
    for (const double radius : {0.0, 4.0, 10.0, 12.5, 24.0, 100.0}) {
        EXPECT_NEAR(Compositor::cornerRadius(window({400, 300}, radius)), radius, 0.6);
        EXPECT_NEAR(Compositor::cornerRadius(window({400, 300}, radius, QColor(9, 9, 9, 180))), radius, 0.8)
            << "translucent, radius " << radius;
    }
    EXPECT_EQ(Compositor::cornerRadius(filled({30, 30}, Qt::red)), 0);
    EXPECT_EQ(Compositor::cornerRadius(window({400, 300}, 100), 16), 0) << "the sample is too small to tell";
    EXPECT_EQ(Compositor::cornerRadius(QImage()), 0);
}

TEST_F(WindowBackdropCompositorTest, EachStyleHasItsBackgroundAndLeavesTheWindowAsItIs)
{
    preferences.set(Settings::windowBackdropColorHex, "#204060");
    const QColor colour("#204060");
    const QImage captured = window({600, 400}, 20);
    const QImage wallpaper = filled({100, 100}, Qt::yellow);

    struct Case {
        WindowBackdropStyle style;
        std::optional<QImage> wallpaper;
        QImage::Format format;
        QColor topLeft;
        QColor bottomRight;
    };

    const Case cases[] = {
        {WindowBackdropStyle::wallpaper, wallpaper, QImage::Format_RGB32, Qt::yellow, Qt::yellow},
        {WindowBackdropStyle::wallpaper, {}, QImage::Format_RGB32, "#16297C", "#7A3DE8"},
        {WindowBackdropStyle::solidColor, {}, QImage::Format_RGB32, colour, colour},
        {WindowBackdropStyle::transparent, {}, QImage::Format_ARGB32_Premultiplied, Qt::transparent, Qt::transparent},
    };
    for (const Case& c : cases) {
        const auto [image, subject] = compose(captured, c.style, c.wallpaper);
        SCOPED_TRACE(rawString(c.style).toStdString());
        ASSERT_EQ(image.size(), QSize(696, 496));
        EXPECT_EQ(image.format(), c.format);
        const auto corner = [&](QPoint point) { return filled({1, 1}, image.pixelColor(point)); };
        EXPECT_TRUE(Testing::samePicture(corner({0, 0}), filled({1, 1}, c.topLeft), 2));
        EXPECT_TRUE(Testing::samePicture(corner({695, 495}), filled({1, 1}, c.bottomRight), 2));
        EXPECT_EQ(image.pixelColor(0, 0).alpha(), c.topLeft.alpha());
        const QRect core(20, 20, 560, 360);
        EXPECT_TRUE(Testing::identicalPicture(image.copy(core.translated(48, 48)).convertToFormat(QImage::Format_RGB32),
                                              captured.copy(core).convertToFormat(QImage::Format_RGB32)));
        ASSERT_TRUE(subject);
        EXPECT_EQ(subject->rect, (Rect{48, 48, 600, 400}));
        EXPECT_NEAR(subject->cornerRadius, 20, 0.5);
    }
    const auto [bare, subject] = compose(captured, WindowBackdropStyle::trimShadow, wallpaper);
    EXPECT_TRUE(Testing::identicalPicture(bare, captured));
    EXPECT_EQ(subject->rect, (Rect{0, 0, 600, 400}));
    EXPECT_NEAR(subject->cornerRadius, 20, 0.5);

    preferences.set(Settings::windowBackdropColorHex, "no colour");
    EXPECT_EQ(compose(captured, WindowBackdropStyle::solidColor).image.pixel(0, 0), qRgb(255, 255, 255));
    EXPECT_TRUE(compose(QImage(), WindowBackdropStyle::wallpaper).image.isNull());
}

TEST_F(WindowBackdropCompositorTest, TheShadowLiesBelowTheWindowAndFadesOut)
{
    const QImage image = compose(window({600, 400}, 20), WindowBackdropStyle::transparent).image;
    const auto alpha = [&](int x, int y) { return qAlpha(image.pixel(x, y)); };
    const QRect captured(48, 48, 600, 400);
    const int middle = captured.center().x();
    EXPECT_GT(alpha(middle, captured.bottom() + 5), alpha(middle, captured.top() - 5) + 20) << "it falls downwards";
    EXPECT_EQ(alpha(captured.left() - 5, 250), alpha(captured.right() + 5, 250)) << "not to the side";
    // Half of the shadow is left where its own edge lies: 7 pixels (600 x 0.012) below the window's.
    EXPECT_NEAR(alpha(middle, captured.bottom() + 7), 255 * 0.45 / 2, 3);
    EXPECT_NEAR(alpha(middle, captured.bottom() + 7 + 15), 255 * 0.45 * 0.159, 3) << "a sigma further";
    EXPECT_EQ(qRed(image.pixel(middle, captured.bottom() + 7)), 0) << "it is black";
    for (const QPoint corner : {captured.topLeft(), captured.bottomRight()}) {
        EXPECT_GT(alpha(corner.x(), corner.y()), 0) << "the shadow shows through";
        EXPECT_LT(alpha(corner.x(), corner.y()), 115) << "the corner is round";
    }
    for (const QPoint edge : {QPoint(0, 0), QPoint(695, 250), QPoint(middle, 0), QPoint(middle, 495)})
        EXPECT_LE(alpha(edge.x(), edge.y()), 1);
}

TEST_F(WindowBackdropCompositorTest, TheWindowIsFoundAgainInAFinishedPicture)
{
    for (const double radius : {0.0, 16.0}) {
        const QImage image = compose(window({300, 200}, radius), WindowBackdropStyle::transparent).image;
        const CaptureSubject subject = Compositor::subject(image);
        EXPECT_EQ(subject.rect, (Rect{48, 48, 300, 200}));
        EXPECT_NEAR(subject.cornerRadius, radius, 1.5);
    }
    EXPECT_EQ(Compositor::subject(filled({70, 50}, Qt::blue)), (CaptureSubject{{0, 0, 70, 50}, 0}));
}

TEST_F(WindowBackdropCompositorTest, ADesktopPictureFillsTheCanvasAndIsCutEvenly)
{
    QImage wide = filled({900, 100}, Qt::red);
    QPainter(&wide).fillRect(400, 0, 100, 100, Qt::blue);
    QImage canvas = filled({300, 300}, Qt::black);
    QPainter painter(&canvas);
    Compositor::drawScaledToFill(wide, {100, 100, 200, 200}, painter);
    painter.end();
    EXPECT_EQ(canvas.pixel(99, 150), qRgb(0, 0, 0));
    for (const QPoint point : {QPoint(100, 100), QPoint(299, 299), QPoint(101, 298), QPoint(200, 200)})
        EXPECT_EQ(canvas.pixel(point), qRgb(0, 0, 255));
}

TEST_F(WindowBackdropCompositorTest, OneGrabServesAllWhoAskForAWhile)
{
    desktop.picture = filled({40, 30}, Qt::red);
    ask(1, 40);
    ask(1, 40);
    ask(1, 20);
    loop.runPosted();
    EXPECT_THAT(wallpapers, ElementsAre(Size{40, 30}, Size{40, 30}, Size{40, 30}));
    EXPECT_THAT(desktop.grabs, ElementsAre(std::pair(1u, 40), std::pair(1u, 20)));
    EXPECT_EQ(grabsFor(1, 40), 0);
    EXPECT_EQ(grabsFor(2, 40), 1) << "another display";
    loop.advance(DesktopPictureCache::shelfLife);
    EXPECT_EQ(grabsFor(1, 40), 1) << "the wallpaper may have changed";
    loop.advance(DesktopPictureCache::shelfLife);
    EXPECT_EQ(loop.pendingTimers(), 0);
}

TEST_F(WindowBackdropCompositorTest, NothingOldIsServedAfterTheDisplaysChanged)
{
    desktop.picture = filled({40, 30}, Qt::red);
    EXPECT_EQ(grabsFor(1, 40), 1);
    displays.change({});
    EXPECT_EQ(grabsFor(1, 40), 1);
    loop.advance(DesktopPictureCache::shelfLife);
    ask(1, 40);
    displays.change({});
    loop.runPosted();
    EXPECT_EQ(wallpapers.size(), 3) << "who asked before the change has an answer";
    EXPECT_EQ(grabsFor(1, 40), 1) << "which is not kept";
}

TEST_F(WindowBackdropCompositorTest, AFailedGrabIsAskedForAgain)
{
    EXPECT_EQ(grabsFor(1, 40), 1);
    desktop.picture = filled({40, 30}, Qt::red);
    EXPECT_EQ(grabsFor(1, 40), 1);
    EXPECT_THAT(wallpapers, ElementsAre(Size{}, Size{40, 30}));
}

} // namespace Kovrel
