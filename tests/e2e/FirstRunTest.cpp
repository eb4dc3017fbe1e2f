#include "tests/e2e/UserSession.h"
#include "tests/support/PaintedScreen.h"
#include "tests/support/TestKeyboard.h"

#include <gtest/gtest.h>

namespace Kovrel {

using Testing::TestKeyboard;
using Testing::UserSession;

namespace {

using enum TestKeyboard::Key;

// Somebody who starts the program for the first time.
struct FirstRunTest : testing::Test {
    Testing::VirtualDisplay display{{1280, 800}};
    Testing::PaintedScreen painted{display.name()};
    TestKeyboard keyboard{display.name()};
    UserSession session{&display};

    void SetUp() override
    {
        display.run("openbox", {"--sm-disable"}, "WM_S0");
        session.setVariable("KOVREL_REDUCED_MOTION", "1");
        session.startKovrel({});
        waitForWindow();
    }

    bool isWindowThere() { return session.run("xdotool", search()).exitCode == 0; }

    static QStringList search(bool sync = false)
    {
        return QStringList{"search"} + (sync ? QStringList{"--sync"} : QStringList()) +
               QStringList{"--onlyvisible", "--name", "^Welcome to Kovrel$"};
    }

    void waitForWindow() { session.run("xdotool", search(true) + QStringList{"windowactivate", "--sync"}); }

    void type(const char* key) { session.run("xdotool", {"key", key}); }

    QString value(const QString& key)
    {
        return QString::fromUtf8(session.kovrel({"preferences", "get", key}).output).trimmed();
    }

    size_t panels() const { return painted.panels().size(); }

    // Drags an area out, or lets it be, once the window has made way.
    void select(bool isWanted)
    {
        ASSERT_TRUE(UserSession::eventually([&] { return !isWindowThere() && panels() > 0; }));
        if (isWanted)
            painted.drag({100, 100}, {300, 240});
        else
            type("Escape");
    }
};

} // namespace

TEST_F(FirstRunTest, AMinuteWithTheProgramEndsWithACard)
{
    type("Return");
    EXPECT_EQ(value("hasCompletedOnboarding"), "false");
    type("alt+Left");
    type("Return");
    type("Return");
    ASSERT_TRUE(UserSession::eventually([&] { return value("hasCompletedOnboarding") == "true"; }));
    waitForWindow();
    type("Return"); // past the keys
    session.prepare({"showCursorInCapture=false", "afterCaptureActions=1", "previewDurationSeconds=1",
                     "hideChromeFromRecordings=false"});
    type("Return");
    select(false);
    ASSERT_TRUE(UserSession::eventually([&] { return isWindowThere(); })) << "back after a capture that was let be";
    EXPECT_EQ(panels(), 0U);
    waitForWindow();

    keyboard.type({super, shift, digit4});
    select(true);
    ASSERT_TRUE(UserSession::eventually([&] { return isWindowThere() && panels() == 1; })) << "with the card";
    waitForWindow();
    type("Return");
    type("Return");
    EXPECT_TRUE(UserSession::eventually([&] { return !isWindowThere(); }));
    EXPECT_TRUE(UserSession::eventually([&] { return panels() == 0; })) << "the card's time begins at the end";
    session.kovrel({"settings"}); // the program is there, and shows what it is asked for
    EXPECT_FALSE(isWindowThere());
}

TEST_F(FirstRunTest, ItComesAgainUntilSomebodyIsSignedIn)
{
    type("Escape");
    ASSERT_TRUE(UserSession::eventually([&] { return !isWindowThere(); }));
    session.kovrel({});
    EXPECT_TRUE(UserSession::eventually([&] { return isWindowThere(); }));
    waitForWindow();
    EXPECT_EQ(session.kovrel({"sign-in", "--local"}).exitCode, 0);
    type("Escape");
    ASSERT_TRUE(UserSession::eventually([&] { return !isWindowThere(); }));
    session.kovrel({"quit"});
    ASSERT_TRUE(UserSession::eventually([&] { return session.instancePid() == 0; }));
    session.startKovrel({});
    ASSERT_TRUE(UserSession::eventually([&] { return session.instancePid() != 0; }));
    session.kovrel({"settings"});
    EXPECT_FALSE(isWindowThere());
}

} // namespace Kovrel
