#include "platform/x11/X11Displays.h"
#include "platform/x11/X11RepaintFence.h"
#include "platform/x11/X11ScreenPixels.h"
#include "platform/x11/windows/X11WindowImage.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/GrabFailures.h"
#include "tests/support/PaintedScreen.h"
#include "tests/support/Patterns.h"
#include "tests/support/VirtualDisplay.h"

#include <gtest/gtest.h>

#include <csignal>
#include <thread>

#include <xcb/composite.h>

namespace Kovrel {

using Testing::failureOf;
using Testing::pattern;
using Testing::patternAt;
using PointerOption = ScreenPixels::PointerOption;

namespace {

// A screen of 1000 x 700 whose background tells each pixel's place.
struct ScreenPixelsTest : testing::Test {
    ScreenPixelsTest() { screen.setRootPicture(pattern({1000, 700})); }

    GrabbedImage grab(QRect pixels, PointerOption pointer = PointerOption::without)
    {
        std::optional<GrabbedImage> answer;
        service.grab(pixels, pointer, [&](GrabbedImage image) { answer = std::move(image); });
        EXPECT_FALSE(answer) << "answered inside the call";
        workers.runAll();
        EXPECT_FALSE(answer) << "answered outside the main thread";
        loop.runPosted();
        return *std::move(answer);
    }

    bool isRepainted()
    {
        bool isDone = false;
        service.whenRepainted([&](bool answer) { isDone = answer; });
        workers.runAll();
        loop.runPosted();
        return isDone;
    }

    Testing::VirtualDisplay server{{1000, 700}};
    Testing::PaintedScreen screen{server.name()};
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    std::shared_ptr<X11ImageReader> reader =
        std::make_shared<X11ImageReader>(std::make_shared<X11Connection>(server.name()));
    X11ScreenPixels service{loop, workers, reader};
};

const QRgb black = qRgb(0, 0, 0);

// Which shared memory an image lies in: the number of its file. Addresses are used again for other memory.
std::string memoryOf(const QImage& image)
{
    QFile maps("/proc/self/maps");
    EXPECT_TRUE(maps.open(QIODevice::ReadOnly));
    const QByteArray address = QByteArray::number(quint64(image.constBits()), 16) + '-';
    for (const QByteArray& line : maps.readAll().split('\n')) {
        if (line.startsWith(address))
            return line.simplified().split(' ').value(4).toStdString();
    }
    return "not shared";
}

// What the screen holds of a pixel: the pattern where `shown` says so, else black.
void expectPattern(const QImage& image, QPoint topLeft, const QRegion& shown)
{
    for (int y = 0; y < image.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const QPoint root = topLeft + QPoint(x, y);
            const QRgb expected = shown.contains(root) ? patternAt(root.x(), root.y()) | 0xff000000 : black;
            ASSERT_EQ(row[x], expected) << "at " << root.x() << "," << root.y();
        }
    }
}

} // namespace

TEST_F(ScreenPixelsTest, EveryPixelIsTheScreensAndOpaque)
{
    for (const QRect pixels : {QRect(0, 0, 1000, 700), QRect(999, 699, 1, 1), QRect(333, 5, 301, 600)}) {
        const auto image = grab(pixels);
        ASSERT_TRUE(image);
        EXPECT_EQ(image->size(), pixels.size());
        EXPECT_EQ(image->format(), QImage::Format_RGB32);
        expectPattern(*image, pixels.topLeft(), pixels);
    }
}

TEST_F(ScreenPixelsTest, WhatLiesOnNoDisplayIsBlackAndAloneIsRefused)
{
    const QRect primary(400, 300, 600, 400); // the other one lies left of and above it
    const QRect other(0, 0, 400, 500);
    server.setMonitors({{"MAIN", primary}, {"LEFT", other}});
    const QRegion shown = QRegion(primary) + other;

    struct Case {
        QRect pixels;
        bool isGrabbed;
    };

    const Case cases[] = {
        {primary, true},
        {other, true},
        {{0, 0, 1000, 700}, true},       // both, with the corners between them
        {{350, 250, 100, 100}, true},    // across the seam
        {{-50, -20, 100, 100}, true},    // beyond the root's corner
        {{950, 650, 5000, 100}, true},   // beyond the other one
        {{500, 0, 400, 300}, false},     // on the root, but on no display
        {{-100, -100, 100, 100}, false}, // ends where the root begins
        {{1000, 0, 10, 10}, false},
        {{10, 10, 0, 5}, false},
    };
    for (const Case& c : cases) {
        const auto image = grab(c.pixels);
        ASSERT_EQ(image.has_value(), c.isGrabbed) << c.pixels.x() << "," << c.pixels.y();
        if (image)
            expectPattern(*image, c.pixels.topLeft(), shown);
        else
            EXPECT_EQ(image.error(), GrabFailure::noDisplay);
    }
}

TEST_F(ScreenPixelsTest, DisplayUnpluggedBetweenRequestAndGrab)
{
    server.setMonitors({{"MAIN", {0, 0, 500, 700}}, {"SIDE", {500, 0, 500, 700}}});
    std::optional<GrabbedImage> answer;
    service.grab({600, 0, 100, 100}, PointerOption::without, [&](GrabbedImage image) { answer = std::move(image); });
    server.setMonitors({{"MAIN", {0, 0, 500, 700}}});
    workers.runAll();
    loop.runPosted();
    ASSERT_TRUE(answer);
    EXPECT_EQ(failureOf(*answer), GrabFailure::noDisplay);
}

TEST_F(ScreenPixelsTest, ThePointerIsDrawnWhereItPointsWhenAskedFor)
{
    screen.setCursor(16, Qt::red);
    for (const QPoint pointer : {QPoint(300, 200), QPoint(0, 0), QPoint(999, 699)}) {
        screen.movePointer(pointer);
        const QRect cursor(pointer - QPoint(8, 8), QSize(16, 16));
        const QRect around = cursor.adjusted(-4, -4, 4, 4) & QRect(0, 0, 1000, 700);
        const auto without = grab(around);
        expectPattern(*without, around.topLeft(), around);
        const auto with = grab(around, PointerOption::drawn);
        for (int y = 0; y < with->height(); ++y) {
            for (int x = 0; x < with->width(); ++x) {
                const QRgb expected =
                    cursor.contains(around.topLeft() + QPoint(x, y)) ? qRgb(255, 0, 0) : without->pixel(x, y);
                ASSERT_EQ(with->pixel(x, y), expected) << x << "," << y;
            }
        }
    }
}

TEST_F(ScreenPixelsTest, SegmentsComeBackFromAnyThreadAndAreNeverOverwrittenBefore)
{
    const QRect whole(0, 0, 1000, 700);
    auto first = *grab(whole);
    const auto memory = memoryOf(first);
    QImage copy = first;
    first = QImage();
    EXPECT_NE(memoryOf(*grab(whole)), memory) << "the pixels of a living copy";
    expectPattern(copy, {0, 0}, whole);
    std::thread([held = std::exchange(copy, QImage())]() mutable { held = QImage(); }).join();
    EXPECT_EQ(memoryOf(*grab(whole)), memory) << "a fresh segment costs ten times the grab";
    EXPECT_NE(memoryOf(*grab({0, 0, 10, 10})), memory) << "a small picture would hold on to a big segment";
}

TEST_F(ScreenPixelsTest, MemoryOfImagesIsGivenBackOnceNoneAreTakenForAWhile)
{
    const auto segments = [] {
        QFile maps("/proc/self/maps");
        return maps.open(QIODevice::ReadOnly) ? maps.readAll().count("/memfd:kovrel-pixels") : -1;
    };
    Testing::FakeMainLoop clock;
    reader->releaseWhenIdle(clock);
    const QRect whole(0, 0, 1000, 700);
    auto held = grab(whole);
    grab(whole);
    clock.advance(std::chrono::seconds(2));
    EXPECT_EQ(segments(), 2) << "the next capture may follow soon";
    clock.advance(std::chrono::seconds(2));
    EXPECT_EQ(segments(), 1);
    expectPattern(*held, {0, 0}, whole);
    held = std::unexpected(GrabFailure::noDisplay);
    EXPECT_EQ(segments(), 0) << "an image that was kept for longer";
    const auto memory = memoryOf(*grab(whole));
    EXPECT_EQ(memoryOf(*grab(whole)), memory) << "the next burst of captures";
}

TEST_F(ScreenPixelsTest, ImagesOutliveTheServiceAndTheServer)
{
    const QRect part(10, 20, 300, 200);
    const auto image = grab(part);
    server.end();
    EXPECT_EQ(failureOf(grab(part)), GrabFailure::noDisplay);
    reader = nullptr;
    expectPattern(*image, part.topLeft(), part);
}

TEST_F(ScreenPixelsTest, RepaintedMeansThatOthersHavePaintedWhatAHiddenWindowCovered)
{
    for (const bool isComposited : {false, true}) {
        if (isComposited)
            server.run("picom", {"--backend", "xrender", "--config", "/dev/null"}, "_NET_WM_CM_S0");
        screen.show({.pixels = {100, 100, 200, 200}, .colour = Qt::blue});
        const xcb_window_t above = screen.show({.pixels = {100, 100, 200, 200}, .colour = Qt::yellow});
        EXPECT_TRUE(isRepainted());
        EXPECT_EQ(grab({150, 150, 1, 1})->pixel(0, 0), QColor(Qt::yellow).rgb());
        screen.hide(above);
        EXPECT_TRUE(isRepainted());
        const auto image = grab({100, 100, 200, 200});
        EXPECT_EQ(image->pixel(0, 0), QColor(Qt::blue).rgb()) << "composited: " << isComposited;
        EXPECT_EQ(image->pixel(199, 199), QColor(Qt::blue).rgb());
    }
}

TEST_F(ScreenPixelsTest, RepaintedMeansThatALateCompositorHasShownIt)
{
    const qint64 compositor = server.run("picom", {"--backend", "xrender", "--config", "/dev/null"}, "_NET_WM_CM_S0");
    screen.show({.pixels = {100, 100, 200, 200}, .colour = Qt::blue});
    const xcb_window_t above = screen.show({.pixels = {100, 100, 200, 200}, .colour = Qt::yellow});
    EXPECT_TRUE(isRepainted());
    ::kill(pid_t(compositor), SIGSTOP);
    screen.hide(above);
    std::jthread busy([compositor] {
        std::this_thread::sleep_for(std::chrono::milliseconds(120));
        ::kill(pid_t(compositor), SIGCONT);
    });
    EXPECT_TRUE(isRepainted());
    EXPECT_EQ(grab({150, 150, 1, 1})->pixel(0, 0), QColor(Qt::blue).rgb());
    const QPoint last(999, 699);
    EXPECT_EQ(grab({last, QSize(1, 1)})->pixel(0, 0), patternAt(last.x(), last.y()) | 0xff000000)
        << "the fence is in the picture";
}

TEST_F(ScreenPixelsTest, ACompositorThatNeverShowsAnythingIsNotWaitedForForEver)
{
    X11Connection compositor(server.name());
    ASSERT_TRUE(compositor.has(xcb_composite_id));
    xcb_composite_redirect_subwindows(compositor.handle(), compositor.root(), XCB_COMPOSITE_REDIRECT_MANUAL);
    compositor.roundTrip();
    EXPECT_FALSE(X11RepaintFence(*reader, {999, 699}).pass());
    xcb_composite_unredirect_subwindows(compositor.handle(), compositor.root(), XCB_COMPOSITE_REDIRECT_MANUAL);
    compositor.roundTrip();
    EXPECT_TRUE(X11RepaintFence(*reader, {999, 699}).pass()) << "without it windows are seen at once";
}

TEST(ScreenPixelsOfDyingServer, AreRefusedWhileTheProgramGoesOn)
{
    Testing::VirtualDisplay server;
    std::signal(SIGPIPE, SIG_DFL);
    const auto reader = std::make_shared<X11ImageReader>(std::make_shared<X11Connection>(server.name()));
    server.end();
    for (int attempt = 0; attempt < 3; ++attempt)
        EXPECT_EQ(failureOf(X11Screen(*reader).grab({0, 0, 10, 10}, PointerOption::drawn)), GrabFailure::noDisplay);
    EXPECT_FALSE(X11Screen(*reader).waitUntilRepainted());
    EXPECT_EQ(failureOf(X11WindowImage::grab(*reader, 77)), GrabFailure::noDisplay);
    EXPECT_TRUE(X11Displays::read(reader->connection(), [](const QString&) { return 1.0; }).empty());
}

TEST(ScreenPixelsOfPoorServers, AreTakenWithWhatThereIsOrRefused)
{
    const QStringList without{"-extension", "MIT-SHM",   "-extension", "RANDR",  "-extension", "XFIXES",
                              "-extension", "Composite", "-extension", "DAMAGE", "-extension", "SHAPE"};
    const Testing::VirtualDisplay bare({300, 200}, 24, without);
    Testing::PaintedScreen screen(bare.name());
    screen.setRootPicture(pattern({300, 200}));
    const auto reader = std::make_shared<X11ImageReader>(std::make_shared<X11Connection>(bare.name()));
    const auto image = X11Screen(*reader).grab({-10, -5, 300, 200}, PointerOption::drawn);
    ASSERT_TRUE(image);
    expectPattern(*image, {-10, -5}, QRect(0, 0, 300, 200));
    EXPECT_TRUE(X11Screen(*reader).waitUntilRepainted());
    EXPECT_EQ(failureOf(X11WindowImage::grab(*reader, screen.root())), GrabFailure::notSupported);

    for (const int depth : {8, 15, 16, 30}) {
        const Testing::VirtualDisplay other({300, 200}, depth);
        const auto refusing = std::make_shared<X11ImageReader>(std::make_shared<X11Connection>(other.name()));
        const auto refused = X11Screen(*refusing).grab({0, 0, 10, 10}, PointerOption::without);
        EXPECT_EQ(failureOf(refused), GrabFailure::otherPixels) << depth;
    }
}

TEST(ScreenPixelsWithoutServer, RefusesInOrder)
{
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    X11ScreenPixels service(loop, workers, std::make_shared<X11ImageReader>(std::make_shared<X11Connection>(":32767")));
    std::vector<std::string> log;
    service.grab({0, 0, 10, 10}, PointerOption::drawn, [&](GrabbedImage image) {
        log.push_back(failureOf(image) == GrabFailure::noDisplay ? "no display" : "?");
    });
    service.whenRepainted([&](bool isDone) { log.push_back(isDone ? "repainted" : "not repainted"); });
    workers.runAll();
    loop.runPosted();
    EXPECT_EQ(log, (std::vector<std::string>{"no display", "not repainted"}));
}

} // namespace Kovrel
