#include "tests/e2e/UserSession.h"
#include "tests/support/PaintedScreen.h"
#include "tests/support/Patterns.h"
#include "tests/support/PictureDifference.h"

#include <QFileInfo>
#include <QImageReader>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <csignal>
#include <unistd.h>

namespace Kovrel {

using Testing::sameColors;

namespace {

// A session on a display whose every pixel tells its own place.
struct CaptureTest : testing::Test {
    Testing::VirtualDisplay display;
    QImage screen = Testing::pattern({1280, 800});
    Testing::PaintedScreen painted{display.name()};
    Testing::UserSession session{&display};

    void SetUp() override
    {
        painted.setRootPicture(screen);
        painted.movePointer({1279, 799});
        session.prepare({"showCursorInCapture=false"});
    }
};

} // namespace

TEST_F(CaptureTest, EachModeEndsInAFileWithExactlyThePixelsOfTheScreen)
{
    session.prepare({"selfTimerSeconds=1"});

    struct Case {
        QStringList arguments;
        const char* mode;
        QRect pixels;
    };

    const Case cases[] = {
        {{"fullScreen"}, "fullScreen", {0, 0, 1280, 800}},
        {{"area", "--rect", "10,20,301,203"}, "area", {10, 20, 301, 203}},
        {{"lastArea"}, "lastArea", {10, 20, 301, 203}},
        {{"area", "--rect=1200,700,80,100"}, "area", {1200, 700, 80, 100}},
        {{"lastArea", "--save"}, "lastArea", {1200, 700, 80, 100}},
        {{"timed"}, "timed", {0, 0, 1280, 800}},
    };
    const QRegularExpression templated("^Screenshot \\d{4}-\\d\\d-\\d\\d at \\d\\d\\.\\d\\d\\.\\d\\d( \\d+)?\\.png$");
    QStringList paths;
    for (const Case& c : cases) {
        const auto result = session.kovrel(QStringList{"capture"} + c.arguments + QStringList{"--wait", "--json"});
        ASSERT_EQ(result.exitCode, 0) << result.error.constData();
        const QJsonObject json = result.json();
        EXPECT_EQ(json["mode"], c.mode);
        EXPECT_EQ(QSize(json["width"].toInt(), json["height"].toInt()), c.pixels.size());
        EXPECT_EQ(json["pixelScale"], 1);
        EXPECT_TRUE(QFileInfo::exists(json["historyPath"].toString()));
        const QFileInfo file(json["path"].toString());
        EXPECT_EQ(file.path(), session.saveFolder());
        EXPECT_TRUE(templated.match(file.fileName()).hasMatch()) << qPrintable(file.fileName());
        EXPECT_TRUE(sameColors(QImage(file.filePath()), screen.copy(c.pixels))) << c.mode;
        paths << file.filePath();
    }
    EXPECT_EQ(QSet<QString>(paths.begin(), paths.end()).size(), std::size(cases));
}

TEST_F(CaptureTest, TheOutputsExtensionDecidesTheFormat)
{
    for (const auto& [name, format] :
         {std::pair{"a.png", "png"}, {"b.jpeg", "jpeg"}, {"c.tiff", "tiff"}, {"d.heic", ""}}) {
        const auto result = session.kovrel({"capture", "fullScreen", "--output", name});
        EXPECT_EQ(result.exitCode, 0) << result.error.constData();
        const QString path = session.path("home/" + QString(name));
        EXPECT_GT(QFileInfo(path).size(), 1000) << name;
        if (*format)
            EXPECT_EQ(QImageReader::imageFormat(path), format);
    }
    EXPECT_TRUE(session.savedFiles().isEmpty()) << "an output takes the automatic file's place";
    EXPECT_EQ(session.kovrel({"capture", "fullScreen", "--output", "e.bmp"}).exitCode, 2);
    EXPECT_EQ(session.kovrel({"capture", "fullScreen", "--output", "missing/folder/f.png"}).exitCode, 4);
    EXPECT_EQ(session.savedFiles().size(), 1) << "what could not be written is kept";
}

TEST_F(CaptureTest, ASecondProgramReadsTheCopiedPicture)
{
    ASSERT_EQ(session.kovrel({"capture", "fullScreen", "--copy"}).exitCode, 0);
    const auto targets = session.run("xclip", {"-selection", "clipboard", "-t", "TARGETS", "-o"});
    EXPECT_TRUE(targets.output.contains("image/png\n")) << targets.output.constData();
    EXPECT_TRUE(targets.output.contains("image/tiff\n"));
    for (const char* type : {"image/png", "image/tiff"}) {
        const auto bytes = session.run("xclip", {"-selection", "clipboard", "-t", type, "-o"}).output;
        EXPECT_TRUE(sameColors(QImage::fromData(bytes), screen)) << type;
    }
}

TEST_F(CaptureTest, WhatWasCopiedOutlivesTheProgramWhereAManagerTakesIt)
{
    session.start("xfce4-clipman", {});
    ASSERT_TRUE(Testing::UserSession::eventually([&] { return painted.hasOwner("CLIPBOARD_MANAGER"); }));
    ASSERT_EQ(session.kovrel({"capture", "area", "--rect", "10,10,60,50", "--copy"}).exitCode, 0);
    session.kovrel({"quit"});
    EXPECT_TRUE(Testing::UserSession::eventually([&] { return session.instancePid() == 0; }));
    const auto bytes = session.run("xclip", {"-selection", "clipboard", "-t", "image/png", "-o"}).output;
    EXPECT_TRUE(sameColors(QImage::fromData(bytes), screen.copy(10, 10, 60, 50)));
}

TEST_F(CaptureTest, FinishedCapturesAreAnnouncedOnTheBus)
{
    QProcess& monitor = session.start("dbus-monitor", {"--session", "interface='com.kovrel'"});
    ASSERT_TRUE(monitor.waitForReadyRead());
    const auto result = session.kovrel({"capture", "area", "--rect", "0,0,33,44", "--json"});
    QByteArray heard;
    EXPECT_TRUE(Testing::UserSession::eventually([&] {
        monitor.waitForReadyRead(10);
        heard += monitor.readAllStandardOutput();
        return heard.contains("member=captureFinished") && heard.contains("int32 44");
    }));
    EXPECT_TRUE(heard.contains(result.json()["id"].toString().toLatin1()));
    EXPECT_TRUE(heard.contains("string \"area\""));
}

TEST_F(CaptureTest, EscapeEndsACountdownFromAnywhere)
{
    session.prepare({"selfTimerSeconds=60"});
    QProcess& capture = session.startKovrel({"capture", "timed", "--wait"});
    EXPECT_TRUE(Testing::UserSession::eventually([&] {
        painted.typeEscape();
        return capture.waitForFinished(50);
    }));
    EXPECT_EQ(capture.exitCode(), 1);
    EXPECT_TRUE(session.savedFiles().isEmpty());
    EXPECT_EQ(session.kovrel({"capture", "fullScreen", "--wait"}).exitCode, 0) << "the next capture works";
}

TEST_F(CaptureTest, EndingTheProgramAnswersWhoeverWaits)
{
    session.prepare({"selfTimerSeconds=60"});
    session.kovrel({"capture", "fullScreen"});
    QProcess& countdown = session.startKovrel({"capture", "timed", "--wait"});
    EXPECT_TRUE(Testing::UserSession::eventually(
        [&] { return session.kovrel({"capture", "fullScreen"}).error.contains("already starting"); }));
    EXPECT_EQ(session.kovrel({"quit"}).exitCode, 0);
    EXPECT_TRUE(countdown.waitForFinished());
    EXPECT_EQ(countdown.exitCode(), 1) << countdown.readAllStandardError().constData();

    for (int round = 0; round < 4; ++round) {
        session.kovrel({"capture", "fullScreen"});
        QProcess& capture = session.startKovrel({"capture", "fullScreen", "--save", "--wait"});
        capture.waitForFinished(3 * round);
        const qint64 pid = session.instancePid();
        ::kill(pid_t(pid), SIGTERM);
        EXPECT_TRUE(capture.waitForFinished());
        const QString path = QString::fromUtf8(capture.readAllStandardOutput()).trimmed();
        EXPECT_EQ(capture.exitCode() == 0, !QImage(path).isNull()) << "a save that was begun is finished and told";
        EXPECT_NE(capture.exitCode(), 139);
        // A client that came too late has started another one.
        EXPECT_TRUE(Testing::UserSession::eventually([&] { return session.instancePid() != pid; }));
    }
}

TEST_F(CaptureTest, AKilledClientTakesItsCountdownWithIt)
{
    session.prepare({"selfTimerSeconds=60"});
    session.kovrel({"capture", "fullScreen"}); // the instance is there
    QProcess& capture = session.startKovrel({"capture", "timed", "--wait"});
    EXPECT_TRUE(Testing::UserSession::eventually(
        [&] { return session.kovrel({"capture", "fullScreen"}).error.contains("already starting"); }));
    capture.kill();
    EXPECT_TRUE(Testing::UserSession::eventually(
        [&] { return session.kovrel({"capture", "fullScreen", "--wait"}).exitCode == 0; }));
}

TEST_F(CaptureTest, ThePointerIsDrawnOnlyWhenWanted)
{
    painted.setCursor(9, Qt::red);
    painted.movePointer({500, 300});
    const auto centre = [&] {
        const auto result = session.kovrel({"capture", "fullScreen", "--wait", "--json"});
        return QImage(result.json()["path"].toString()).pixelColor(500, 300);
    };
    EXPECT_EQ(centre(), QColor(screen.pixel(500, 300) | 0xff000000));
    session.kovrel({"preferences", "set", "showCursorInCapture", "true"});
    EXPECT_EQ(centre(), QColor(Qt::red));
}

TEST(CaptureOnTwoMonitors, EachIsTakenWhereverItLies)
{
    // The primary one is right of and below the other: the other lies left of and above it.
    Testing::VirtualDisplay display({1600, 1100});
    const QRect primary(800, 300, 800, 800);
    const QRect other(0, 0, 800, 600);
    display.setMonitors({{"MAIN", primary}, {"OTHER", other}});
    Testing::PaintedScreen painted(display.name());
    const QImage screen = Testing::pattern({1600, 1100});
    painted.setRootPicture(screen);
    Testing::UserSession session(&display);
    session.prepare({"showCursorInCapture=false"});

    for (const QRect& monitor : {primary, other}) {
        painted.movePointer(monitor.center());
        const auto json = session.kovrel({"capture", "fullScreen", "--wait", "--json"}).json();
        EXPECT_TRUE(sameColors(QImage(json["path"].toString()), screen.copy(monitor)));
    }
    const auto json = session.kovrel({"capture", "area", "--rect", "-300,-200,100,90", "--wait", "--json"}).json();
    EXPECT_TRUE(sameColors(QImage(json["path"].toString()), screen.copy(500, 100, 100, 90)));
}

TEST(CaptureOnTwoMonitors, AMonitorThatGoesDuringTheCountdownLeavesTheOther)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "X servers with outputs to unplug are for root only";
    Testing::VirtualDisplay display{Testing::VirtualDisplay::TwoOutputs()};
    display.arrange({"--output", "DUMMY1", "--mode", "1920x1080", "--left-of", "DUMMY0"});
    Testing::PaintedScreen painted(display.name());
    painted.movePointer({100, 100});
    Testing::UserSession session(&display);
    session.prepare({"selfTimerSeconds=2"});
    session.kovrel({"capture", "fullScreen"});
    QProcess& capture = session.startKovrel({"capture", "timed", "--wait", "--json"});
    EXPECT_TRUE(Testing::UserSession::eventually(
        [&] { return session.kovrel({"capture", "fullScreen"}).error.contains("already starting"); }));
    display.arrange({"--output", "DUMMY1", "--off"});
    EXPECT_TRUE(capture.waitForFinished());
    EXPECT_EQ(capture.exitCode(), 0) << capture.readAllStandardError().constData();
    EXPECT_EQ(session.kovrel({"capture", "fullScreen", "--wait"}).exitCode, 0);
}

TEST(CaptureOnTwoMonitors, PointsAndPixelsOfAScaledMonitor)
{
    Testing::VirtualDisplay display({1600, 1100});
    display.setMonitors({{"MAIN", {800, 300, 800, 800}}, {"OTHER", {0, 0, 800, 600}}});
    Testing::PaintedScreen painted(display.name());
    const QImage screen = Testing::pattern({1600, 1100});
    painted.setRootPicture(screen);
    Testing::UserSession session(&display);
    session.setVariable("QT_SCREEN_SCALE_FACTORS", "MAIN=1;OTHER=2");
    session.prepare({"showCursorInCapture=false"});

    painted.movePointer({100, 100});
    const auto whole = session.kovrel({"capture", "fullScreen", "--wait", "--json"}).json();
    EXPECT_EQ(whole["pixelScale"], 2);
    EXPECT_EQ(whole["width"], 800) << "every pixel of a scaled display is kept";
    const auto json = session.kovrel({"capture", "area", "--rect", "-790,-290,100,50", "--wait", "--json"}).json();
    EXPECT_TRUE(sameColors(QImage(json["path"].toString()), screen.copy(20, 20, 200, 100)));
    session.kovrel({"preferences", "set", "retinaDownscale", "true"});
    const auto reduced = session.kovrel({"capture", "lastArea", "--wait", "--json"}).json();
    EXPECT_EQ(QImage(reduced["path"].toString()).size(), QSize(100, 50));
}

} // namespace Kovrel
