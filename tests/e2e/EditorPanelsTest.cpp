#include "tests/e2e/UserSession.h"
#include "tests/support/PaintedScreen.h"
#include "tests/support/PictureDifference.h"
#include "tests/support/TestKeyboard.h"

#include <QImage>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

using Testing::TestKeyboard;
using Testing::UserSession;

// Places of letters on the keyboard.
constexpr xcb_keycode_t keyB = 56;
constexpr xcb_keycode_t keyC = 54;
constexpr xcb_keycode_t keyE = 26;
constexpr xcb_keycode_t keyF = 41;
constexpr xcb_keycode_t keyR = 27;
constexpr xcb_keycode_t keyS = 39;
constexpr xcb_keycode_t keyT = 28;
constexpr xcb_keycode_t keyTab = 23;

constexpr QColor paper(250, 250, 252);

bool isAllBlack(const QImage& image)
{
    QImage black(image.size(), QImage::Format_RGB32);
    black.fill(Qt::black);
    return Testing::sameColors(image, black);
}

// The editor of a file whose text says what is secret, driven by keys alone.
struct EditorPanelsTest : testing::Test {
    EditorPanelsTest()
    {
        display.run("openbox", {"--sm-disable"}, "WM_S0");
        screen.emplace(display.name());
        keyboard.emplace(display.name());
        session.emplace(&display);
        screen->movePointer({5, 5});
        session->prepare();
        path = session->path("page.png");
        session->run("convert",
                     {"-size", "640x200", "xc:" + paper.name(), "-font", "DejaVu-Sans", "-pointsize", "32", "-annotate",
                      "+60+140", "secret", "-annotate", "+300+140", "and open", "-depth", "8", path});
        EXPECT_EQ(session->kovrel({"open", path}).exitCode, 0);
        EXPECT_TRUE(UserSession::eventually([this] { return isShown() && hasKeyboard(); }));
    }

    // Windows are shown before they are given the keyboard.
    bool hasKeyboard()
    {
        return session->run("xdotool", {"getactivewindow", "getwindowname"}).output.contains("page.png");
    }

    static QRect secret() { return {60, 100, 120, 50}; }

    // The canvas shows paper somewhere in its middle.
    bool isShown() const { return screen->pixelAt({640, 420}) == (paper.rgb() & RGB_MASK); }

    // A hit that is looked at: orange.
    bool isHitShown() const
    {
        for (int y = 200; y < 700; y += 10)
            for (int x = 200; x < 1080; x += 20)
                if (const QColor color(QRgb(screen->pixelAt({x, y}))); color.red() > 220 && color.blue() < 160)
                    return true;
        return false;
    }

    void type(std::initializer_list<xcb_keycode_t> keys)
    {
        for (const xcb_keycode_t key : keys)
            keyboard->type({key});
    }

    void withControl(xcb_keycode_t key) { keyboard->type({TestKeyboard::control, key}); }

    QImage saved() const { return QImage(path).convertToFormat(QImage::Format_RGB32); }

    // Saves until the file is as it is awaited: what was done may still be on its way.
    bool eventuallySaved(const std::function<bool(const QImage&)>& condition)
    {
        return UserSession::eventually([&] {
            withControl(keyS);
            return condition(saved());
        });
    }

    Testing::VirtualDisplay display;
    std::optional<Testing::PaintedScreen> screen;
    std::optional<TestKeyboard> keyboard;
    std::optional<UserSession> session;
    QString path;
};

} // namespace

TEST_F(EditorPanelsTest, WhatIsFoundIsRedactedInTheFile)
{
    session->kovrel({"preferences", "set", "redactTool", "blackout"});
    const QImage before = saved();
    withControl(keyF);
    type({keyS, keyE, keyC, keyR, keyE, keyT});
    ASSERT_TRUE(UserSession::eventually([this] { return isHitShown(); })) << "the text is read and found";
    // From the field over previous, next and the kind to the button.
    type({keyTab, keyTab, keyTab, keyTab, TestKeyboard::space});
    ASSERT_TRUE(eventuallySaved([](const QImage& file) { return isAllBlack(file.copy(70, 120, 85, 18)); }));
    const QImage after = saved();
    const QRect open(290, 90, 350, 80);
    EXPECT_TRUE(Testing::sameColors(after.copy(open), before.copy(open))) << "nothing else is hidden";
    int left = 0;
    for (int y = secret().top(); y < secret().bottom(); ++y)
        for (int x = secret().left(); x < secret().right(); ++x)
            left += before.pixelColor(x, y).lightness() < 128 && after.pixelColor(x, y) != Qt::black;
    EXPECT_EQ(left, 0) << "of the letters nothing is left";
}

TEST_F(EditorPanelsTest, ALookSetsTheFileOnABackdrop)
{
    withControl(keyB);
    // From the canvas over the title of the looks to "No Backdrop", and right to the first look.
    type({keyTab, keyTab, TestKeyboard::right, TestKeyboard::space});
    ASSERT_TRUE(eventuallySaved([](const QImage& file) { return file.size() != QSize(640, 200); }));
    const QImage file = saved();
    EXPECT_GT(file.width(), 640);
    EXPECT_NE(file.pixelColor(2, 2), paper);
    EXPECT_EQ(file.pixelColor(file.width() / 2, file.height() / 4), paper) << "the capture stands in the middle";
}

} // namespace Kovrel
