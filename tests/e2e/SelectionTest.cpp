#include "tests/e2e/UserSession.h"
#include "tests/support/PaintedScreen.h"
#include "tests/support/Patterns.h"
#include "tests/support/PictureDifference.h"
#include "tests/support/TestKeyboard.h"

#include <QDeadlineTimer>
#include <QJsonDocument>
#include <QPainter>

#include <gtest/gtest.h>

#include <csignal>
#include <set>
#include <unistd.h>

namespace Kovrel {

using Testing::sameColors;
using Testing::TestKeyboard;
using Testing::UserSession;

namespace {

constexpr QRect mainMonitor(800, 300, 800, 800);
constexpr QRect otherMonitor(0, 0, 800, 600); // left of and above the primary one
constexpr QSize desktop(1600, 1100);

// A user before a desktop of two monitors whose every pixel tells its own place.
struct SelectionTest : testing::Test {
    Testing::VirtualDisplay display{desktop};
    QImage screen = Testing::pattern(desktop);
    std::unique_ptr<Testing::PaintedScreen> painted;
    std::unique_ptr<TestKeyboard> keyboard;
    std::unique_ptr<UserSession> session;
    QProcess* capture = nullptr;

    void SetUp() override
    {
        display.setMonitors({{"MAIN", mainMonitor}, {"OTHER", otherMonitor}});
        begin();
        session->setVariable("QT_SCREEN_SCALE_FACTORS", "MAIN=1;OTHER=2");
        session->prepare({"windowBackdropStyle=trimShadow"});
    }

    void begin()
    {
        painted = std::make_unique<Testing::PaintedScreen>(display.name());
        painted->setRootPicture(screen);
        painted->movePointer({1500, 1000});
        keyboard = std::make_unique<TestKeyboard>(display.name());
        session = std::make_unique<UserSession>(&display);
    }

    bool isShaded(QPoint pixel) const { return painted->pixelAt(pixel) != (screen.pixel(pixel) & 0xffffff); }

    // Two places far from everything that a test points at.
    bool isOverlayUp() const { return isShaded({5, 5}) && isShaded({1590, 310}); }

    bool isOverlayGone() const { return !isShaded({5, 5}) && !isShaded({1590, 310}); }

    void start(const QString& mode)
    {
        capture = &session->startKovrel({"capture", mode, "--wait", "--json"});
        ASSERT_TRUE(UserSession::eventually([this] { return isOverlayUp(); }));
    }

    // Keys and pointer reach a program on different ways: what the user sees comes between them.
    void waitUntilLit(QPoint pixel)
    {
        EXPECT_TRUE(UserSession::eventually([&] { return !isShaded(pixel); })) << pixel.x() << "," << pixel.y();
    }

    void waitUntilShaded(QPoint pixel)
    {
        EXPECT_TRUE(UserSession::eventually([&] { return isShaded(pixel); })) << pixel.x() << "," << pixel.y();
    }

    QJsonObject result()
    {
        EXPECT_TRUE(capture->waitForFinished());
        EXPECT_EQ(capture->exitCode(), 0) << capture->readAllStandardError().constData();
        EXPECT_TRUE(UserSession::eventually([this] { return isOverlayGone(); }));
        return QJsonDocument::fromJson(capture->readAllStandardOutput()).object();
    }

    void expectPicture(const QRect& pixels, double scale)
    {
        const QJsonObject json = result();
        EXPECT_TRUE(sameColors(QImage(json["path"].toString()), screen.copy(pixels)));
        EXPECT_EQ(json["pixelScale"], scale);
    }

    void expectCancelled()
    {
        EXPECT_TRUE(capture->waitForFinished());
        EXPECT_EQ(capture->exitCode(), 1);
        EXPECT_TRUE(UserSession::eventually([this] { return isOverlayGone(); }));
        EXPECT_TRUE(session->savedFiles().isEmpty());
    }

    // The next one works as if nothing had been.
    void expectNextCaptureWorks()
    {
        start("area");
        painted->drag({1000, 400}, {1100, 450});
        expectPicture({1000, 400, 100, 50}, 1);
    }
};

} // namespace

TEST_F(SelectionTest, ADragIsTheDesktopsOwnPixelsBetweenPressAndRelease)
{
    struct Case {
        const char* what;
        QPoint from, to;
        QRect pixels;
        double scale;
    };

    const Case cases[] = {
        {"right and down", {1000, 400}, {1301, 603}, {1000, 400, 301, 203}, 1},
        {"left and up", {1301, 603}, {1000, 400}, {1000, 400, 301, 203}, 1},
        {"right and up on the scaled monitor", {101, 303}, {302, 100}, {101, 100, 201, 203}, 2},
        {"to the seam", {700, 350}, {800, 450}, {700, 350, 100, 100}, 2},
        {"across the seam", {700, 350}, {900, 450}, {700, 350, 200, 100}, 1},
        {"back across the seam", {900, 450}, {700, 350}, {700, 350, 200, 100}, 2},
        {"to the last pixel", {1500, 1000}, {1599, 1099}, {1500, 1000, 100, 100}, 1},
        {"from the last pixel", {1599, 1099}, {1500, 1000}, {1500, 1000, 100, 100}, 1},
        {"four points", {1000, 400}, {1004, 404}, {1000, 400, 4, 4}, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        start("area");
        painted->drag(c.from, c.to);
        expectPicture(c.pixels, c.scale);
    }
}

TEST_F(SelectionTest, NothingFlashesBetweenTheScreenAndItsShade)
{
    session->startKovrel({"--background"});
    ASSERT_TRUE(UserSession::eventually([&] { return session->instancePid() != 0; }));
    capture = &session->startKovrel({"capture", "area", "--wait", "--json"});
    std::set<QRgb> seen;
    for (QDeadlineTimer patience(15000); seen.size() < 2 && !patience.hasExpired();)
        seen.insert(painted->pixelAt({5, 5}));
    for (QDeadlineTimer rest(200); !rest.hasExpired();)
        seen.insert(painted->pixelAt({5, 5}));
    EXPECT_EQ(seen.size(), 2u) << "as it was, and shaded";
    EXPECT_TRUE(seen.contains(screen.pixel(5, 5) & 0xffffff));
    keyboard->type({TestKeyboard::escape});
    expectCancelled();
}

TEST_F(SelectionTest, WhatSelectsNothingLeavesNoTrace)
{
    struct Case {
        const char* what;
        std::function<void()> act;
    };

    const Case cases[] = {
        {"Escape", [&] { keyboard->type({TestKeyboard::escape}); }},
        {"Escape in the middle of a drag",
         [&] {
             painted->press({1000, 400});
             painted->movePointer({1100, 500});
             waitUntilLit({1050, 450});
             keyboard->type({TestKeyboard::escape});
             waitUntilLit({5, 5});
             painted->release();
         }},
        {"the right button", [&] { painted->click({1000, 400}, 3); }},
        {"narrower than four points", [&] { painted->drag({1000, 400}, {1003, 410}); }},
        {"seven pixels of a monitor with two for each point", [&] { painted->drag({100, 100}, {107, 200}); }},
        {"a click without a drag", [&] { painted->click({1000, 400}); }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        start("area");
        c.act();
        expectCancelled();
    }
    start("window");
    painted->click({1000, 400});
    expectCancelled();
    expectNextCaptureWorks();
}

TEST_F(SelectionTest, SpaceMovesTheRectangleAndShiftMakesItSquare)
{
    start("area");
    painted->press({1000, 400});
    painted->movePointer({1100, 450});
    waitUntilLit({1005, 405});
    keyboard->press(TestKeyboard::space);
    painted->movePointer({1130, 470});
    waitUntilShaded({1005, 405});
    keyboard->release(TestKeyboard::space);
    painted->movePointer({1150, 480});
    waitUntilLit({1145, 475});
    painted->release();
    expectPicture({1030, 420, 120, 60}, 1);

    start("area");
    painted->press({1000, 400});
    keyboard->press(TestKeyboard::shift);
    painted->movePointer({1120, 430});
    waitUntilLit({1060, 510});
    keyboard->release(TestKeyboard::shift);
    waitUntilShaded({1060, 510});
    keyboard->press(TestKeyboard::shift);
    waitUntilLit({1060, 510}); // also while the pointer rests
    painted->release();
    keyboard->release(TestKeyboard::shift);
    expectPicture({1000, 400, 120, 120}, 1);
}

TEST_F(SelectionTest, TheKeyboardAloneSelects)
{
    painted->movePointer({1000, 400});
    start("area");
    ASSERT_TRUE(UserSession::eventually([&] { return painted->pixelAt({1010, 410}) != 0; }));
    keyboard->type({TestKeyboard::enter}); // nothing is selected: does nothing
    for (int i = 0; i < 3; ++i)
        keyboard->type({TestKeyboard::shift, TestKeyboard::right});
    keyboard->type({TestKeyboard::right});
    for (int i = 0; i < 2; ++i)
        keyboard->type({TestKeyboard::shift, TestKeyboard::down});
    keyboard->type({TestKeyboard::up});
    keyboard->type({TestKeyboard::control, TestKeyboard::left}); // the whole of it
    keyboard->type({TestKeyboard::enter});
    expectPicture({999, 400, 31, 19}, 1);
}

TEST_F(SelectionTest, ACoveredWindowIsTakenWithItsTransparentEdges)
{
    const QRect pixels(1000, 400, 200, 150);
    const xcb_window_t window = painted->show({.pixels = pixels, .colour = QColor(200, 40, 40)});
    painted->setShape(window, {10, 10, 180, 130});
    painted->show({.pixels = {1050, 420, 300, 200}, .colour = QColor(10, 220, 10)});
    start("window");
    painted->click({1020, 500});
    const QImage picture(result()["path"].toString());
    ASSERT_EQ(picture.size(), pixels.size());
    EXPECT_EQ(picture.pixel(0, 0), 0u) << "a corner";
    EXPECT_EQ(picture.pixelColor(20, 20), QColor(200, 40, 40));
    EXPECT_EQ(picture.pixelColor(100, 100), QColor(200, 40, 40)) << "where another window lies above it";
}

TEST_F(SelectionTest, NeitherPanelsNorTheDesktopCanBePickedButMenusCan)
{
    painted->show({.pixels = {800, 300, 800, 800}, .colour = Qt::blue, .type = "_NET_WM_WINDOW_TYPE_DESKTOP"});
    painted->show({.pixels = {800, 300, 800, 40}, .colour = Qt::gray, .type = "_NET_WM_WINDOW_TYPE_DOCK"});
    painted->show({.pixels = {900, 320, 120, 200},
                   .colour = Qt::yellow,
                   .managesItself = true,
                   .type = "_NET_WM_WINDOW_TYPE_POPUP_MENU"});
    for (const QPoint nothing : {QPoint(1200, 900), QPoint(1200, 320)}) {
        capture = &session->startKovrel({"capture", "window", "--wait", "--json"});
        ASSERT_TRUE(UserSession::eventually([this] { return isShaded({5, 5}); }));
        painted->click(nothing);
        EXPECT_TRUE(capture->waitForFinished());
        EXPECT_EQ(capture->exitCode(), 1);
        ASSERT_TRUE(UserSession::eventually([this] { return !isShaded({5, 5}); }));
    }
    capture = &session->startKovrel({"capture", "window", "--wait", "--json"});
    ASSERT_TRUE(UserSession::eventually([this] { return isShaded({5, 5}); }));
    painted->click({950, 400});
    EXPECT_TRUE(capture->waitForFinished());
    const auto json = QJsonDocument::fromJson(capture->readAllStandardOutput()).object();
    EXPECT_EQ(QImage(json["path"].toString()).size(), QSize(120, 200));
}

TEST_F(SelectionTest, TwoTilesAreTakenTogetherAtTheirSeam)
{
    for (const auto& [pixels, colour] : {std::pair(QRect(900, 400, 200, 300), QColor(Qt::red)),
                                         std::pair(QRect(1104, 400, 150, 300), QColor(Qt::blue))})
        painted->show({.pixels = pixels, .colour = colour, .type = "_NET_WM_WINDOW_TYPE_NORMAL"});
    start("window");
    painted->click({1102, 500});
    const QImage both(result()["path"].toString());
    ASSERT_EQ(both.size(), QSize(354, 300));
    EXPECT_EQ(both.pixelColor(50, 50), QColor(Qt::red));
    EXPECT_EQ(both.pixel(202, 50), 0u) << "between them";
    EXPECT_EQ(both.pixelColor(300, 50), QColor(Qt::blue));
    start("window");
    painted->click({1000, 500});
    EXPECT_EQ(QImage(result()["path"].toString()).size(), QSize(200, 300)) << "one alone";
}

TEST_F(SelectionTest, ModesAreSwitchedBySpaceAndByASecondRequest)
{
    painted->show({.pixels = {900, 400, 200, 300}, .colour = Qt::red});
    painted->movePointer({1000, 500});
    start("area");
    keyboard->type({TestKeyboard::space});
    EXPECT_TRUE(UserSession::eventually([this] { return painted->pixelAt({910, 410}) == 0xff0000; })) << "lights up";
    painted->click({1000, 500});
    EXPECT_EQ(result()["mode"], "window");

    start("area");
    QProcess& area = *capture;
    capture = &session->startKovrel({"capture", "window", "--wait", "--json"});
    EXPECT_TRUE(area.waitForFinished());
    EXPECT_EQ(area.exitCode(), 1);
    ASSERT_TRUE(UserSession::eventually([this] { return isOverlayUp(); }));
    painted->click({1000, 500});
    EXPECT_EQ(result()["mode"], "window");
}

TEST_F(SelectionTest, ASessionThatLosesItsGroundIsCancelledAndTheNextOneWorks)
{
    const xcb_window_t window =
        painted->show({.pixels = {900, 400, 200, 300}, .colour = Qt::red, .type = "_NET_WM_WINDOW_TYPE_NORMAL"});

    struct Case {
        const char* what;
        const char* mode;
        std::function<void()> act;
        std::function<void()> undo = {};
    };

    const Case cases[] = {
        {"another program takes the keyboard", "area", [&] { ASSERT_TRUE(keyboard->holdKeyboard()); },
         [&] { keyboard->letKeyboardGo(); }},
        {"the screen is locked", "area",
         [&] {
             session->run("dbus-send", {"--session", "--type=signal", "/org/freedesktop/ScreenSaver",
                                        "org.freedesktop.ScreenSaver.ActiveChanged", "boolean:true"});
         }},
        {"the picked window closes", "window",
         [&] {
             painted->movePointer({1000, 500});
             painted->hide(window);
             painted->click({1000, 500});
         }},
        // Last, and it stays: what tells of its end could cancel the session that follows.
        {"a monitor comes", "area",
         [&] { display.setMonitors({{"MAIN", mainMonitor}, {"OTHER", otherMonitor}, {"THIRD", {0, 600, 800, 500}}}); }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        start(c.mode);
        c.act();
        expectCancelled();
        if (c.undo)
            c.undo();
    }
    expectNextCaptureWorks();
}

TEST_F(SelectionTest, AProgramThatIsKilledLeavesPointerAndKeyboardFree)
{
    start("area");
    painted->press({1000, 400});
    ::kill(pid_t(session->instancePid()), SIGKILL);
    EXPECT_TRUE(UserSession::eventually([this] { return isOverlayGone(); }));
    painted->release();
    EXPECT_TRUE(keyboard->holdKeyboard());
    keyboard->letKeyboardGo();
    EXPECT_TRUE(painted->holdPointer());
}

TEST_F(SelectionTest, AnOpenMenuIsInThePictureAndLetsGoOfThePointer)
{
    QProcess& menu = session->start(OPEN_MENU, {});
    const QPoint inMenu(20, 10);
    ASSERT_TRUE(UserSession::eventually([&] { return painted->pixelAt(inMenu) == 0xff0000; }));
    session->startKovrel({"--background"});
    ASSERT_TRUE(UserSession::eventually([&] { return session->instancePid() != 0; }));
    capture = &session->startKovrel({"capture", "area", "--wait", "--json"});
    ASSERT_TRUE(UserSession::eventually([&] { return painted->pixelAt(inMenu) != 0xff0000 && isShaded({1590, 310}); }));
    EXPECT_TRUE(menu.waitForFinished()) << "it was closed";
    painted->drag({0, 0}, {300, 100});
    const QImage picture(result()["path"].toString());
    ASSERT_EQ(picture.size(), QSize(300, 100));
    EXPECT_EQ(picture.pixelColor(inMenu), QColor(Qt::red));
}

TEST_F(SelectionTest, NothingStaysInFrontOfTheOverlayButWhatInsists)
{
    start("area");
    const xcb_window_t window =
        painted->show({.pixels = {1000, 400, 100, 100}, .colour = Qt::green, .managesItself = true});
    EXPECT_TRUE(UserSession::eventually([this] { return painted->pixelAt({1050, 450}) != 0x00ff00; }));
    EXPECT_TRUE(UserSession::eventually([&] {
        painted->raise(window);
        return !isShaded({5, 5});
    }));
    expectCancelled();
}

TEST_F(SelectionTest, TheHotkeysOpenItAndSwitchItAlsoFromAMenu)
{
    using enum TestKeyboard::Key;
    session->prepare({"windowBackdropStyle=wallpaper", "afterCaptureActions=4"});
    painted->show({.pixels = {900, 400, 200, 300}, .colour = Qt::red});
    painted->movePointer({1000, 500});
    session->startKovrel({"--background"});
    ASSERT_TRUE(UserSession::eventually([this] {
        keyboard->type({super, shift, digit4});
        return isOverlayUp();
    })) << "once the program is there";
    keyboard->type({super, shift, digit5});
    ASSERT_TRUE(UserSession::eventually([this] { return painted->pixelAt({910, 410}) == 0xff0000 && isOverlayUp(); }))
        << "lights up";
    painted->click({1000, 500});
    QImage composed;
    ASSERT_TRUE(UserSession::eventually(
        [&] { return composed.load(session->saveFolder() + "/" + session->savedFiles().value(0)); }));
    ASSERT_EQ(composed.size(), QSize(200 + 2 * 48, 300 + 2 * 48));
    EXPECT_EQ(composed.pixelColor(148, 198), QColor(Qt::red));
    EXPECT_EQ(composed.pixelColor(1, 1).alpha(), 255) << "the desktop picture";

    session->start(OPEN_MENU, {});
    const QPoint inMenu(20, 10);
    ASSERT_TRUE(UserSession::eventually([&] { return painted->pixelAt(inMenu) == 0xff0000; }));
    keyboard->type({super, shift, digit4});
    ASSERT_TRUE(UserSession::eventually([&] { return painted->pixelAt(inMenu) != 0xff0000 && isOverlayUp(); }));
    // Keys are the session's again once the menu has let go.
    ASSERT_TRUE(UserSession::eventually([this] {
        keyboard->type({escape});
        return isOverlayGone();
    }));
    EXPECT_EQ(session->savedFiles().size(), 1);
}

TEST_F(SelectionTest, PressesWhileACaptureIsFinishingAreTakenOrDroppedAndNothingHangs)
{
    using enum TestKeyboard::Key;
    session->prepare({"afterCaptureActions=4"});
    session->startKovrel({"--background"});
    ASSERT_TRUE(UserSession::eventually([this] {
        keyboard->type({super, shift, digit4});
        return isOverlayUp();
    }));
    painted->drag({1000, 400}, {1100, 450});
    ASSERT_TRUE(UserSession::eventually([this] { return isOverlayGone(); }));
    for (int press = 0; press < 3; ++press)
        keyboard->type({super, shift, digit3});
    const auto sizes = [this] {
        std::multiset<int> widths;
        for (const QString& name : session->savedFiles())
            widths.insert(QImage(session->saveFolder() + "/" + name).width());
        return widths;
    };
    EXPECT_TRUE(
        UserSession::eventually([&] { return sizes().contains(100) && sizes().contains(mainMonitor.width()); }));
    expectNextCaptureWorks();
    EXPECT_LE(sizes().count(mainMonitor.width()), 3u);
}

TEST(SelectionOnFractionalScales, IsExactToThePixel)
{
    for (const char* scale : {"1.25", "1.5"}) {
        SCOPED_TRACE(scale);
        const QSize size(1366, 768);
        Testing::VirtualDisplay display(size);
        Testing::PaintedScreen painted(display.name());
        const QImage screen = Testing::pattern(size);
        painted.setRootPicture(screen);
        UserSession session(&display);
        session.setVariable("QT_SCALE_FACTOR", scale);
        session.prepare();
        QProcess& capture = session.startKovrel({"capture", "area", "--wait", "--json"});
        ASSERT_TRUE(
            UserSession::eventually([&] { return painted.pixelAt({5, 5}) != (screen.pixel(5, 5) & 0xffffff); }));
        painted.drag({101, 203}, {1365, 767});
        ASSERT_TRUE(capture.waitForFinished());
        const auto json = QJsonDocument::fromJson(capture.readAllStandardOutput()).object();
        EXPECT_TRUE(sameColors(QImage(json["path"].toString()), screen.copy(101, 203, 1265, 565)));
        EXPECT_EQ(json["pixelScale"], QString(scale).toDouble());
    }
}

TEST(SelectionOnLiveScreens, TakesWhatIsThereAtTheEndWithoutTheOverlay)
{
    const QSize size(1000, 700);
    Testing::VirtualDisplay display(size);
    Testing::PaintedScreen painted(display.name());
    painted.setRootPicture(Testing::pattern(size));
    display.run("picom", {"--backend", "xrender", "--config", "/dev/null"}, "_NET_WM_CM_S0");
    const xcb_window_t window = painted.show({.pixels = {100, 100, 300, 200}, .colour = Qt::blue});
    UserSession session(&display);
    session.prepare();
    QProcess& capture = session.startKovrel({"capture", "area", "--wait", "--json"});
    const auto shows = [&](QPoint pixel, QRgb colour) {
        return UserSession::eventually([&] { return painted.pixelAt(pixel) == (colour & 0xffffff); });
    };
    ASSERT_TRUE(UserSession::eventually([&] {
        const QRgb pixel = painted.pixelAt({390, 290});
        return pixel != 0 && pixel != 0x0000ff;
    })) << "it is shaded";
    painted.press({110, 110});
    painted.movePointer({350, 280});
    EXPECT_TRUE(shows({200, 200}, 0x0000ff)) << "lit";
    painted.show({.pixels = {150, 150, 20, 20}, .colour = Qt::red});
    EXPECT_TRUE(shows({160, 160}, 0xff0000)) << "what other programs draw goes on to show";
    painted.release();
    ASSERT_TRUE(capture.waitForFinished());
    const QImage picture(QJsonDocument::fromJson(capture.readAllStandardOutput()).object()["path"].toString());
    ASSERT_EQ(picture.size(), QSize(240, 170));
    QImage expected(picture.size(), QImage::Format_RGB32);
    expected.fill(Qt::blue);
    QPainter(&expected).fillRect(QRect(40, 40, 20, 20), Qt::red);
    EXPECT_TRUE(sameColors(picture, expected));
    painted.hide(window);
}

TEST(SelectionOnRealOutputs, EndsWhenAMonitorIsUnplugged)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "X servers with outputs to unplug are for root only";
    Testing::VirtualDisplay display{Testing::VirtualDisplay::TwoOutputs()};
    display.arrange({"--output", "DUMMY1", "--mode", "1920x1080", "--left-of", "DUMMY0"});
    Testing::PaintedScreen painted(display.name());
    const QImage screen = Testing::pattern({3840, 1080});
    painted.setRootPicture(screen);
    painted.movePointer({3000, 500});
    UserSession session(&display);
    session.prepare();
    const auto isShaded = [&](QPoint pixel) { return painted.pixelAt(pixel) != (screen.pixel(pixel) & 0xffffff); };
    QProcess& first = session.startKovrel({"capture", "area", "--wait"});
    ASSERT_TRUE(UserSession::eventually([&] { return isShaded({5, 5}) && isShaded({3835, 5}); }));
    display.arrange({"--output", "DUMMY1", "--off"});
    EXPECT_TRUE(first.waitForFinished());
    EXPECT_EQ(first.exitCode(), 1);
}

} // namespace Kovrel
