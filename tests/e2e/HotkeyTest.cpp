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
using enum TestKeyboard::Key;

const Keys fullScreen{super, shift, digit3};
const Keys colorOnAnsi{control, alt, placeOfC};

// The program runs on a desktop with a window manager; what it takes is saved.
struct HotkeyTest : testing::Test {
    Testing::VirtualDisplay display;
    Testing::PaintedScreen painted{display.name()};
    TestKeyboard keyboard{display.name()};
    UserSession session{&display};
    QProcess* program = nullptr;
    qsizetype pictures = 0;

    void SetUp() override
    {
        display.run("openbox", {"--sm-disable"}, "WM_S0");
        session.prepare({"showCursorInCapture=false", "afterCaptureActions=4"});
        start();
    }

    void start()
    {
        program = &session.startKovrel({"--background"});
        ASSERT_TRUE(UserSession::eventually([&] { return session.instancePid() != 0; }));
        ASSERT_TRUE(takes(0, {})) << "it answers";
    }

    bool isFree(xcb_keycode_t key, uint16_t modifiers)
    {
        const bool wasFree = keyboard.grab(key, modifiers);
        if (wasFree)
            keyboard.ungrab(key, modifiers);
        return wasFree;
    }

    bool isFullScreenFree() { return isFree(digit3, XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT); }

    // Whether the keys make so many pictures, and no more by the time that a command after them is through.
    bool takes(int count, const Keys& keys)
    {
        keyboard.type(keys);
        pictures += count;
        UserSession::eventually([&] { return session.savedFiles().size() >= pictures; });
        session.kovrel({"capture", "area", "--rect", "0,0,9,9", "--wait"});
        return session.savedFiles().size() == ++pictures;
    }
};

} // namespace

TEST_F(HotkeyTest, TakesTheScreenOnceWhateverIsLockedAndHoweverLongItIsHeld)
{
    EXPECT_TRUE(takes(1, fullScreen));
    for (const auto lock : {capsLock, numLock}) {
        keyboard.type({lock});
        EXPECT_TRUE(takes(1, fullScreen)) << int(lock);
    }
    session.run("xset", {"r", "rate", "5", "200"}); // repeats start at once
    for (const auto key : fullScreen)
        keyboard.press(key);
    EXPECT_TRUE(takes(1, {}));
    EXPECT_TRUE(takes(0, {}));
}

TEST_F(HotkeyTest, WorksWhileAMenuIsOpenAndTakesTheMenu)
{
    QProcess& menu = session.start(OPEN_MENU, {});
    ASSERT_TRUE(UserSession::eventually([&] { return painted.pixelAt({8, 8}) == 0xff0000; }));
    ASSERT_FALSE(keyboard.holdKeyboard()) << "the menu has it";
    const QStringList before = session.savedFiles();
    keyboard.type(fullScreen);
    QImage picture;
    EXPECT_TRUE(UserSession::eventually([&] {
        for (const QString& file : session.savedFiles())
            if (!before.contains(file))
                picture = QImage(session.saveFolder() + '/' + file);
        return !picture.isNull();
    }));
    EXPECT_EQ(picture.pixelColor(8, 8), QColor(Qt::red));
    ++pictures;
    EXPECT_TRUE(takes(0, {}));
    EXPECT_EQ(menu.state(), QProcess::Running);
}

TEST_F(HotkeyTest, FollowsTheKeyboardAndTheSettings)
{
    session.kovrel({"preferences", "set", "hotkeyFullScreen", "Ctrl+Alt+C"});
    session.kovrel({"preferences", "set", "hotkeyPickColor", "none"});
    EXPECT_TRUE(takes(1, colorOnAnsi));
    EXPECT_TRUE(takes(0, fullScreen)) << "the old combination";
    EXPECT_TRUE(isFullScreenFree());

    keyboard.setLayout({"us", "-variant", "dvorak"});
    ASSERT_TRUE(UserSession::eventually([&] { return isFree(placeOfC, XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1); }));
    EXPECT_TRUE(takes(1, {control, alt, placeOfI}));
    EXPECT_TRUE(takes(0, colorOnAnsi));

    session.kovrel({"preferences", "set", "hotkeyFullScreen", "Super+Shift+3"});
    keyboard.setLayout({"fr"});
    EXPECT_TRUE(takes(1, fullScreen));
}

TEST_F(HotkeyTest, LeavesToOthersWhatIsTheirs)
{
    session.kovrel({"sign-out"});
    EXPECT_TRUE(UserSession::eventually([&] { return isFullScreenFree(); })) << "signed out";
    EXPECT_TRUE(isFree(digit4, XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT));

    ASSERT_TRUE(keyboard.grab(digit4, XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT));
    session.kovrel({"sign-in", "--local"});
    EXPECT_TRUE(takes(1, fullScreen)) << "the other hotkeys";
    const QByteArray refusal = "Kovrel: failed to register hotkey (status 10)\n";
    EXPECT_TRUE(UserSession::eventually([&] {
        program->waitForReadyRead(1);
        return program->peek(1 << 20).contains(refusal) || program->readAllStandardError().contains(refusal);
    }));

    session.kovrel({"preferences", "set", "hotkeyArea", "none"});
    const auto taken = session.kovrel({"preferences", "set", "hotkeyArea", "Super+Shift+4"});
    EXPECT_EQ(taken.exitCode, 4) << "it is another program's, which is said";
    EXPECT_TRUE(taken.error.contains("Super+Shift+4 belongs to another program")) << taken.error.constData();

    keyboard.ungrab(digit4, XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT);
    session.kovrel({"preferences", "set", "hotkeyArea", "none"});
    EXPECT_EQ(session.kovrel({"preferences", "set", "hotkeyArea", "Super+Shift+4"}).exitCode, 0);
    EXPECT_FALSE(isFree(digit4, XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT)) << "freed and registered again";

    program->kill();
    program->waitForFinished();
    EXPECT_TRUE(UserSession::eventually([&] { return isFullScreenFree() && keyboard.holdKeyboard(); })) << "killed";
}

} // namespace Kovrel
