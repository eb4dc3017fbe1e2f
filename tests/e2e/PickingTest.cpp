#include "tests/e2e/UserSession.h"
#include "tests/support/PaintedScreen.h"
#include "tests/support/Patterns.h"
#include "tests/support/PictureDifference.h"
#include "tests/support/TestKeyboard.h"

#include <gtest/gtest.h>

namespace Kovrel {

using Testing::TestKeyboard;
using Testing::UserSession;

namespace {

constexpr QRect mainMonitor(800, 300, 800, 800);
constexpr QRect otherMonitor(0, 0, 800, 600); // left of and above the primary one
constexpr QSize desktop(1600, 1100);
constexpr QPoint start(1200, 700);
constexpr QPoint inLoupe(1300, 730); // beside the pointer, where the loupe comes up

// A user before two monitors of different scale whose every pixel tells its own place.
struct PickingTest : testing::Test {
    Testing::VirtualDisplay display{desktop};
    Testing::PaintedScreen painted{display.name()};
    QImage screen = Testing::pattern(desktop);
    TestKeyboard keyboard{display.name()};
    UserSession session{&display};
    QProcess* picking = nullptr;

    void SetUp() override
    {
        display.setMonitors({{"MAIN", mainMonitor}, {"OTHER", otherMonitor}});
        painted.setRootPicture(screen);
        painted.movePointer(start);
        session.setVariable("QT_SCREEN_SCALE_FACTORS", "MAIN=1;OTHER=2");
        session.prepare({"showCursorInCapture=false"});
    }

    bool isCovered(QPoint pixel) const { return painted.pixelAt(pixel) != (screen.pixel(pixel) & 0xffffff); }

    void begin(const QStringList& options = {})
    {
        painted.movePointer(start);
        picking = &session.startKovrel(QStringList{"pick-color"} + options);
        ASSERT_TRUE(UserSession::eventually([this] { return isCovered(inLoupe) && !isCovered({5, 5}); }))
            << "over screens that are not shaded";
    }

    QString result(int exitCode = 0)
    {
        EXPECT_TRUE(picking->waitForFinished());
        EXPECT_EQ(picking->exitCode(), exitCode) << picking->readAllStandardError().constData();
        EXPECT_TRUE(UserSession::eventually([this] { return !isCovered(inLoupe); })) << "the loupe is gone";
        return QString::fromUtf8(picking->readAllStandardOutput()).trimmed();
    }

    QString colorAt(QPoint pixel) const { return QColor(screen.pixel(pixel)).name().toUpper(); }
};

} // namespace

TEST_F(PickingTest, AClickPicksItsPixelOnEachMonitor)
{
    for (const QPoint pixel :
         {QPoint(1000, 401), QPoint(1599, 1099), QPoint(800, 300), QPoint(0, 0), QPoint(799, 599), QPoint(301, 203)}) {
        begin();
        painted.movePointer(pixel);
        painted.click(pixel);
        EXPECT_EQ(result(), colorAt(pixel)) << pixel.x() << "," << pixel.y();
    }
}

TEST_F(PickingTest, TheKeyboardAimsAndTheWheelMagnifies)
{
    begin({"--format", "rgb"});
    keyboard.type({TestKeyboard::right});
    keyboard.type({TestKeyboard::shift, TestKeyboard::down});
    const QPoint aimed = start + QPoint(1, 10);
    ASSERT_TRUE(UserSession::eventually([&] { return isCovered(inLoupe + QPoint(1, 10)); }));
    painted.click(start, 4);
    painted.movePointer(aimed);
    keyboard.type({TestKeyboard::enter});
    const QColor color(screen.pixel(aimed));
    EXPECT_EQ(result(), QString("rgb(%1, %2, %3)").arg(color.red()).arg(color.green()).arg(color.blue()));
}

TEST_F(PickingTest, WhatCancelsItPicksNothingAndTheNextOneWorks)
{
    begin();
    keyboard.type({TestKeyboard::escape});
    EXPECT_EQ(result(1), "");
    painted.click({1000, 400});
    begin();
    painted.click({1000, 400}, 3);
    EXPECT_EQ(result(1), "");
    begin();
    picking->kill(); // whoever asked has gone, and the loupe goes, too
    EXPECT_TRUE(UserSession::eventually([this] { return !isCovered(inLoupe); }));
    begin();
    painted.click({1000, 400});
    EXPECT_EQ(result(), colorAt({1000, 400}));
    session.kovrel({"sign-out"});
    EXPECT_EQ(session.kovrel({"pick-color"}).exitCode, 3) << "refused";
}

TEST_F(PickingTest, ACaptureEndsItAndHasNoLoupeInIt)
{
    begin();
    const auto capture = session.kovrel({"capture", "fullScreen", "--wait", "--json"});
    EXPECT_EQ(result(1), "");
    ASSERT_EQ(capture.exitCode, 0) << capture.error.constData();
    EXPECT_TRUE(Testing::sameColors(QImage(capture.json()["path"].toString()), screen.copy(mainMonitor)));
}

TEST_F(PickingTest, ItEndsASelectionThatShowsAndIsNotInItsPicture)
{
    QProcess& capture = session.startKovrel({"capture", "area", "--wait"});
    ASSERT_TRUE(UserSession::eventually([this] { return isCovered({5, 5}); }));
    begin();
    EXPECT_TRUE(capture.waitForFinished());
    EXPECT_EQ(capture.exitCode(), 1);
    painted.click({1000, 400});
    EXPECT_EQ(result(), colorAt({1000, 400}));
}

TEST_F(PickingTest, TheHotkeyCopiesTheColourAsTheLoupeShowsIt)
{
    using enum TestKeyboard::Key;
    session.startKovrel({"--background"});
    ASSERT_TRUE(UserSession::eventually([this] {
        keyboard.type({control, alt, placeOfC});
        return isCovered(inLoupe);
    }));
    keyboard.type({control, alt, placeOfC}); // changes nothing
    painted.click(start);
    const auto clipboard = [this] { return session.run("xclip", {"-selection", "clipboard", "-o"}).output; };
    EXPECT_TRUE(UserSession::eventually([&] { return clipboard() == colorAt(start).toUtf8(); }));
}

TEST(ColorCommand, TellsThePixelOfAPictureWithoutADisplay)
{
    UserSession session(nullptr);
    const QString file = session.path("picture.png");
    QImage picture(3, 2, QImage::Format_RGB32);
    picture.fill(Qt::white);
    picture.setPixel(2, 1, qRgb(10, 11, 171));
    ASSERT_TRUE(picture.save(file));
    EXPECT_EQ(session.kovrel({"color", file, "2", "1"}).output, "#0A0BAB\n");
    EXPECT_EQ(session.kovrel({"color", file, "2", "1", "--format=rgb"}).output, "rgb(10, 11, 171)\n");
    for (const auto& place : {QStringList{"3", "0"}, QStringList{"0", "2"}, QStringList{"-1", "0"}}) {
        const auto outside = session.kovrel(QStringList{"color", file} + place);
        EXPECT_EQ(outside.exitCode, 1) << qPrintable(place.join(','));
        EXPECT_TRUE(outside.error.startsWith("kovrel: ")) << outside.error.constData();
    }
    EXPECT_EQ(session.kovrel({"color", file, "1.5", "0"}).exitCode, 2);
    EXPECT_EQ(session.kovrel({"color", file, "1"}).exitCode, 2);
    EXPECT_EQ(session.kovrel({"color", file, "1", "1", "--format=cmyk"}).exitCode, 2);
    EXPECT_EQ(session.kovrel({"color", session.path("none.png"), "1", "1"}).exitCode, 4);
}

} // namespace Kovrel
