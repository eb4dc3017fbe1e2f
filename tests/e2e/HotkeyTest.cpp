#include "tests/e2e/UserSession.h"
#include "tests/support/PaintedScreen.h"
#include "tests/support/TestKeyboard.h"

#include <QImage>

#include <gtest/gtest.h>

namespace Kovrel {

using Testing::TestKeyboard;
using Testing::UserSession;

namespace {

using Keys = std::vector<xcb_keycode_t>;

const Keys fullScreen{TestKeyboard::super, TestKeyboard::shift, TestKeyboard::digit3};

// The program runs in the tray of a desktop with a window manager.
struct HotkeyTest : testing::Test {
    Testing::VirtualDisplay display;
    Testing::PaintedScreen painted{display.name()};
    TestKeyboard keyboard{display.name()};
    UserSession session{&display};

    void SetUp() override
    {
        display.run("openbox", {"--sm-disable"}, "WM_S0");
        session.prepare({"showCursorInCapture=false", "afterCaptureActions=4"});
        session.kovrel({"capture", "fullScreen", "--wait"});
        taken = session.savedFiles().size();
        ASSERT_EQ(taken, 1);
    }

    // Whether the keys make one picture, and no second one by the time that the next command is through.
    bool takesOne(const Keys& keys)
    {
        keyboard.type(keys);
        const bool isTaken = UserSession::eventually([&] { return session.savedFiles().size() == taken + 1; });
        taken += isTaken;
        return isTaken && takesNone({});
    }

    bool takesNone(const Keys& keys)
    {
        keyboard.type(keys);
        session.kovrel({"capture", "area", "--rect", "0,0,9,9", "--wait"});
        return session.savedFiles().size() == ++taken;
    }

    QImage newest() const { return QImage(session.saveFolder() + '/' + session.savedFiles().last()); }

    qsizetype taken = 0;
};

} // namespace

TEST_F(HotkeyTest, TakesTheScreenOnceHoweverLongItIsHeld)
{
    EXPECT_TRUE(takesOne(fullScreen));
    for (const auto key : fullScreen)
        keyboard.press(key);
    EXPECT_TRUE(UserSession::eventually([&] { return session.savedFiles().size() == taken + 1; }));
    ++taken;
    EXPECT_TRUE(takesNone({}));
}

} // namespace Kovrel
