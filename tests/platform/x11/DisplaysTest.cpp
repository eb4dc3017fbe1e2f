#include "platform/x11/X11Displays.h"
#include "platform/x11/X11Pointer.h"
#include "platform/x11/X11Screen.h"
#include "tests/support/EventLoop.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/PaintedScreen.h"
#include "tests/support/VirtualDisplay.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace Kovrel {

using Testing::waitFor;

namespace {

struct DisplaysTest : testing::Test {
    Testing::VirtualDisplay server{{1200, 900}};
    std::map<QString, double> scales;

    std::unique_ptr<X11Displays> open()
    {
        return std::make_unique<X11Displays>(
            std::make_unique<X11Connection>(server.name()),
            [this](const QString& name) { return scales.contains(name) ? scales[name] : 1.0; });
    }
};

} // namespace

TEST_F(DisplaysTest, FramesCountFromThePrimarysLowerLeftCorner)
{
    struct Case {
        std::vector<Testing::VirtualDisplay::Monitor> monitors;
        std::map<QString, double> scales;
        std::vector<Rect> frames;
    };

    const Case cases[] = {
        {{{"MAIN", {0, 0, 1200, 900}}}, {}, {{0, 0, 1200, 900}}},
        {{{"MAIN", {400, 300, 800, 600}}, {"LEFT", {0, 0, 400, 800}}}, {}, {{0, 0, 800, 600}, {-400, 100, 400, 800}}},
        {{{"MAIN", {400, 300, 800, 600}}, {"LEFT", {0, 0, 400, 800}}},
         {{"LEFT", 2}},
         {{0, 0, 800, 600}, {-400, 500, 200, 400}}},
        {{{"MAIN", {0, 0, 800, 600}}, {"RIGHT", {800, 100, 400, 800}}},
         {{"MAIN", 2}, {"RIGHT", 1.25}},
         {{0, 0, 400, 300}, {800, -440, 320, 640}}},
    };
    for (const Case& c : cases) {
        server.setMonitors(c.monitors);
        scales = c.scales;
        const DisplayList displays = open()->all();
        ASSERT_EQ(displays.size(), c.monitors.size());
        for (size_t index = 0; index < displays.size(); ++index) {
            const Display& display = displays[index];
            EXPECT_EQ(display.name, QString(c.monitors[index].name));
            EXPECT_EQ(display.pixelRect, c.monitors[index].pixels);
            EXPECT_EQ(display.frame, c.frames[index]);
            EXPECT_EQ(display.visibleFrame, c.frames[index]);
            EXPECT_EQ(display.isPrimary, index == 0);
            EXPECT_EQ(display.toPoints(display.pixelRect), display.frame);
        }
    }
}

TEST_F(DisplaysTest, VisibleFramesLeaveOutPanels)
{
    // A panel on top of the right display, one on the left display's left edge, an old-style one along the bottom.
    Testing::PaintedScreen screen(server.name());
    server.setMonitors({{"MAIN", {600, 0, 600, 900}}, {"LEFT", {0, 0, 600, 900}}});
    const auto window = screen.show({.pixels = {600, 0, 600, 30}, .colour = Qt::gray});
    const auto other = screen.show({.pixels = {0, 0, 40, 900}, .colour = Qt::gray});
    const auto old = screen.show({.pixels = {0, 880, 1200, 20}, .colour = Qt::gray});
    screen.setNumbers(window, "_NET_WM_STRUT_PARTIAL", "CARDINAL", {0, 0, 30, 0, 0, 0, 0, 0, 600, 1199, 0, 0});
    screen.setNumbers(other, "_NET_WM_STRUT_PARTIAL", "CARDINAL", {40, 0, 0, 0, 0, 899, 0, 0, 0, 0, 0, 0});
    screen.setNumbers(old, "_NET_WM_STRUT", "CARDINAL", {0, 0, 0, 20});
    screen.setNumbersOnRoot("_NET_CLIENT_LIST", "WINDOW", {window, other, old});
    scales["LEFT"] = 2;
    const DisplayList displays = open()->all();
    EXPECT_EQ(displays[0].visibleFrame, (Rect{0, 20, 600, 850}));
    EXPECT_EQ(displays[1].visibleFrame, (Rect{-580, 460, 280, 440}));
}

TEST_F(DisplaysTest, ADesktopThatDrawsItsPanelsItselfTellsWhatIsFreeOfEachDisplay)
{
    Testing::PaintedScreen screen(server.name());
    server.setMonitors({{"MAIN", {600, 0, 600, 900}}, {"LEFT", {0, 0, 600, 900}}});
    screen.setNumbersOnRoot("_NET_CURRENT_DESKTOP", "CARDINAL", {1});
    screen.setNumbersOnRoot("_NET_WORKAREA", "CARDINAL", {0, 0, 1200, 900, 0, 30, 1200, 870});
    screen.setNumbersOnRoot("_GTK_WORKAREAS_D1", "CARDINAL", {0, 0, 600, 900, 600, 30, 600, 870});
    const DisplayList displays = open()->all();
    EXPECT_EQ(displays[0].visibleFrame, (Rect{0, 0, 600, 870}));
    EXPECT_EQ(displays[1].visibleFrame, displays[1].frame);
}

TEST_F(DisplaysTest, APanelBetweenTwoDisplaysTakesNothingFromTheOuterOne)
{
    Testing::PaintedScreen screen(server.name());
    server.setMonitors({{"MAIN", {600, 0, 600, 900}}, {"LEFT", {0, 0, 600, 900}}});
    const auto dock = screen.show({.pixels = {600, 0, 50, 900}, .colour = Qt::gray});
    screen.setNumbers(dock, "_NET_WM_STRUT_PARTIAL", "CARDINAL", {650, 0, 0, 0, 0, 899, 0, 0, 0, 0, 0, 0});
    screen.setNumbersOnRoot("_NET_CLIENT_LIST", "WINDOW", {dock});
    const DisplayList displays = open()->all();
    EXPECT_EQ(displays[0].visibleFrame, (Rect{50, 0, 550, 900}));
    EXPECT_EQ(displays[1].visibleFrame, displays[1].frame);
}

TEST_F(DisplaysTest, ChangesAreToldOnceAndOnlyWhenSomethingChanged)
{
    Testing::PaintedScreen screen(server.name());
    const auto displays = open();
    std::vector<size_t> counts;
    const Subscription changes = displays->onChange([&] { counts.push_back(displays->all().size()); });

    server.setMonitors({{"MAIN", {0, 0, 600, 900}}, {"SIDE", {600, 0, 600, 900}}});
    EXPECT_TRUE(waitFor([&] { return displays->all().size() == 2; }));
    server.setMonitors({{"MAIN", {0, 0, 1200, 900}}});
    EXPECT_TRUE(waitFor([&] { return displays->all().size() == 1 && displays->all()[0].frame.width == 1200; }));

    const size_t before = counts.size();
    screen.setNumbersOnRoot("_NET_CURRENT_DESKTOP", "CARDINAL", {0}); // looks again, finds nothing new
    screen.setNumbersOnRoot("_NET_WORKAREA", "CARDINAL", {0, 30, 1200, 870});
    EXPECT_TRUE(waitFor([&] { return displays->all()[0].visibleFrame == Rect{0, 0, 1200, 870}; }));
    EXPECT_EQ(counts.size(), before + 1);
    scales["MAIN"] = 2;
    displays->refresh();
    EXPECT_EQ(displays->all()[0].frame, (Rect{0, 0, 600, 450}));
}

TEST_F(DisplaysTest, AServerThatDiesLeavesNoDisplays)
{
    const auto displays = open();
    bool isTold = false;
    const Subscription changes = displays->onChange([&] { isTold = true; });
    server.end();
    EXPECT_TRUE(waitFor([&] { return isTold; }));
    EXPECT_TRUE(displays->all().empty());
}

TEST_F(DisplaysTest, ThePointerIsToldInPixelsAndInPointsOfItsDisplay)
{
    Testing::PaintedScreen screen(server.name());
    server.setMonitors({{"MAIN", {400, 300, 800, 600}}, {"LEFT", {0, 0, 400, 800}}});
    scales["LEFT"] = 2;
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    const auto displays = open();
    X11Pointer pointer(loop, workers, std::make_shared<X11Connection>(server.name()), *displays);

    struct Case {
        QPoint pixel;
        std::optional<Point> point;
    };

    for (const Case& c : {Case{{400, 300}, Point{0, 600}}, Case{{1, 10}, Point{-399.5, 895}}, Case{{500, 100}, {}}}) {
        screen.movePointer(c.pixel);
        std::optional<PointerPosition> position;
        pointer.position([&](std::optional<PointerPosition> answer) { position = answer; });
        workers.runAll();
        loop.runPosted();
        ASSERT_EQ(position.has_value(), c.point.has_value());
        if (position) {
            EXPECT_EQ(position->rootPixel, c.pixel);
            EXPECT_EQ(position->point, *c.point);
        }
    }
}

TEST(DisplaysOfTwoOutputs, FollowWhatIsPluggedIn)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root may give an X server its configuration";
    Testing::VirtualDisplay server(Testing::VirtualDisplay::TwoOutputs{});
    X11Displays displays(std::make_unique<X11Connection>(server.name()),
                         [](const QString& name) { return name == "DUMMY1" ? 2.0 : 1.0; });
    X11ImageReader reader(std::make_shared<X11Connection>(server.name()));
    X11Screen screen(reader);
    const auto canGrab = [&](const QRect& pixels) {
        return screen.grab(pixels, ScreenPixels::PointerOption::without).has_value();
    };
    ASSERT_EQ(displays.all().size(), 1u);

    server.arrange({"--output", "DUMMY1", "--mode", "1920x1080", "--left-of", "DUMMY0"});
    ASSERT_TRUE(waitFor([&] { return displays.all().size() == 2 && displays.all()[0].pixelRect.x() == 1920; }));
    EXPECT_EQ(displays.all()[0].name, "DUMMY0");
    EXPECT_EQ(displays.all()[0].frame, (Rect{0, 0, 1920, 1080}));
    EXPECT_EQ(displays.all()[1].frame, (Rect{-1920, 540, 960, 540}));
    EXPECT_TRUE(canGrab({1920, 0, 1920, 1080}));

    server.arrange({"--output", "DUMMY1", "--primary"});
    EXPECT_TRUE(waitFor([&] { return displays.all()[0].name == "DUMMY1"; }));

    server.arrange({"--output", "DUMMY1", "--off", "--output", "DUMMY0", "--pos", "0x0"});
    EXPECT_TRUE(waitFor([&] { return displays.all().size() == 1 && displays.all()[0].pixelRect.x() == 0; }));
    EXPECT_TRUE(displays.all()[0].isPrimary) << "the first one where none is";
    EXPECT_FALSE(canGrab({1920, 0, 1920, 1080}));
}

TEST(DisplaysWithoutServer, AreNone)
{
    const X11Displays displays(std::make_unique<X11Connection>(":32767"), [](const QString&) { return 1.0; });
    EXPECT_TRUE(displays.all().empty());
}

} // namespace Kovrel
