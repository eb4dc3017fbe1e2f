#include "tests/e2e/UserSession.h"
#include "tests/support/PaintedScreen.h"
#include "tests/support/PictureDifference.h"
#include "tests/support/TestKeyboard.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace Kovrel {

using Testing::TestKeyboard;
using Testing::UserSession;

namespace {

constexpr QRect mainMonitor(800, 300, 800, 800);
constexpr QRect otherMonitor(0, 0, 800, 600); // left of and above the primary one
constexpr QSize desktop(1600, 1100);
constexpr QRect onMain(1000, 500, 320, 96);
constexpr QRect onOther(100, 100, 257, 64);
constexpr QRgb ground = 0xfff0f0f0;

// A user before two monitors of different scale, with a rectangle to measure on each.
struct MeasuringTest : testing::Test {
    Testing::VirtualDisplay display{desktop};
    Testing::PaintedScreen painted{display.name()};
    QImage screen{desktop, QImage::Format_RGB32};
    TestKeyboard keyboard{display.name()};
    UserSession session{&display};
    QProcess* measuring = nullptr;

    void SetUp() override
    {
        screen.fill(ground);
        QPainter painter(&screen);
        painter.fillRect(onMain, QColor(46, 160, 67));
        painter.fillRect(onOther, QColor(46, 67, 160));
        painter.end();
        display.setMonitors({{"MAIN", mainMonitor}, {"OTHER", otherMonitor}});
        painted.setRootPicture(screen);
        painted.movePointer(onMain.center());
        session.setVariable("QT_SCREEN_SCALE_FACTORS", "MAIN=1;OTHER=2");
        session.prepare({"showCursorInCapture=false"});
    }

    bool isChanged(QPoint pixel) const { return painted.pixelAt(pixel) != (screen.pixel(pixel) & 0xffffff); }

    // Guides through the pointer, from edge to edge.
    void waitForGuidesAt(QPoint pointer, const QRect& rect)
    {
        painted.movePointer(pointer);
        EXPECT_TRUE(UserSession::eventually([&] {
            return isChanged({rect.left(), pointer.y()}) && isChanged({pointer.x(), rect.bottom()}) &&
                   !isChanged({rect.left() - 3, pointer.y()});
        }));
    }

    void begin()
    {
        painted.movePointer(onMain.center());
        measuring = &session.startKovrel({"measure"});
        waitForGuidesAt(onMain.center(), onMain);
    }

    QString result(int exitCode = 0)
    {
        EXPECT_TRUE(measuring->waitForFinished());
        EXPECT_EQ(measuring->exitCode(), exitCode) << measuring->readAllStandardError().constData();
        EXPECT_TRUE(UserSession::eventually([this] { return !isChanged(onMain.center() - QPoint(40, 0)); }));
        return QString::fromUtf8(measuring->readAllStandardOutput()).trimmed();
    }

    QByteArray clipboard() { return session.run("xclip", {"-selection", "clipboard", "-o"}).output; }
};

} // namespace

TEST_F(MeasuringTest, AClickTakesTheSizeOfWhatIsUnderThePointerOnEachMonitor)
{
    begin();
    painted.click(onMain.center());
    EXPECT_EQ(result(), QString("320 \u00d7 96"));
    EXPECT_TRUE(UserSession::eventually([this] { return clipboard() == "320 \u00d7 96"; }));
    begin();
    waitForGuidesAt({200, 120}, onOther);
    constexpr xcb_keycode_t placeOfU = 30;
    keyboard.type({placeOfU});
    keyboard.type({TestKeyboard::enter});
    EXPECT_EQ(result(), QString("128.5 \u00d7 32")) << "two pixels to a point there";
    EXPECT_EQ(session.kovrel({"preferences", "get", "measureUnit"}).output.trimmed(), "pt");
}

TEST_F(MeasuringTest, ADraggedRectangleGoesToTheEdgesOrWithAltStaysWhereItIs)
{
    const QPoint from = onMain.topLeft() - QPoint(3, 4);
    const QPoint to = onMain.bottomRight() + QPoint(4, 2);
    begin();
    painted.drag(from, to);
    painted.click({1400, 900});
    EXPECT_EQ(result(), QString("320 \u00d7 96"));
    begin();
    keyboard.press(TestKeyboard::alt);
    painted.drag(from, to);
    keyboard.release(TestKeyboard::alt);
    keyboard.type({TestKeyboard::enter});
    EXPECT_EQ(result(), QString("327 \u00d7 102"));
}

TEST_F(MeasuringTest, EscapeAndACaptureEndIt)
{
    begin();
    keyboard.type({TestKeyboard::escape});
    EXPECT_EQ(result(1), "");
    begin();
    const auto capture = session.kovrel({"capture", "fullScreen", "--wait", "--json"});
    EXPECT_EQ(result(1), "");
    EXPECT_TRUE(Testing::sameColors(QImage(capture.json()["path"].toString()), screen.copy(mainMonitor)));
    begin();
    QProcess& picking = session.startKovrel({"pick-color"});
    EXPECT_TRUE(measuring->waitForFinished());
    EXPECT_EQ(measuring->exitCode(), 1) << "the loupe takes its place";
    ASSERT_TRUE(UserSession::eventually([this] { return isChanged(onMain.center() + QPoint(90, 189)); }));
    painted.click(onMain.center());
    EXPECT_TRUE(picking.waitForFinished());
    EXPECT_EQ(picking.readAllStandardOutput(), "#2EA043\n");
}

TEST(MeasureCommand, TellsARunOfAPictureWithoutADisplay)
{
    UserSession session(nullptr);
    const QString file = session.path("picture.png");
    QImage picture(40, 30, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter(&picture).fillRect(5, 6, 20, 10, QColor(250, 250, 250));
    ASSERT_TRUE(picture.save(file));
    const auto measured = [&](const QStringList& options) {
        return session.kovrel(QStringList{"measure", file, "10", "8"} + options).output;
    };
    EXPECT_EQ(measured({}), "0 39 40\n") << "so faint that it is one thing";
    EXPECT_EQ(measured({"--tolerance=2"}), "5 24 20\n");
    EXPECT_EQ(measured({"--axis=vertical", "--tolerance=0"}), "6 15 10\n");
    EXPECT_EQ(measured({"--edge-floor=12"}), "5 24 20\n");
    EXPECT_EQ(session.kovrel({"measure", file, "40", "0"}).exitCode, 1);
    for (const QStringList& nonsense : {QStringList{file},
                                        {file, "1", "x"},
                                        {file, "1", "1", "--axis=up"},
                                        {file, "1", "1", "--tolerance=300"},
                                        {"--axis=vertical"}})
        EXPECT_EQ(session.kovrel(QStringList{"measure"} + nonsense).exitCode, 2) << qPrintable(nonsense.join(' '));
}

} // namespace Kovrel
