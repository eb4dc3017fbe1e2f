#include "tests/e2e/UserSession.h"
#include "tests/support/PaintedScreen.h"
#include "tests/support/TestKeyboard.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

namespace Kovrel {

using Testing::TestKeyboard;
using Testing::UserSession;

namespace {

using enum TestKeyboard::Key;

// Somebody at the keyboard, with the program and a window manager; no change needs a restart.
struct SettingsTest : testing::Test {
    Testing::VirtualDisplay display{{1280, 800}};
    Testing::PaintedScreen painted{display.name()};
    TestKeyboard keyboard{display.name()};
    UserSession session{&display};

    void SetUp() override
    {
        display.run("openbox", {"--sm-disable"}, "WM_S0");
        painted.movePointer({400, 300});
        session.prepare({"showCursorInCapture=false", "previewDurationSeconds=-1"});
        session.startKovrel({"--background"});
        ASSERT_TRUE(UserSession::eventually([&] { return session.instancePid() != 0; }));
    }

    QByteArray active() { return session.run("xdotool", {"getactivewindow"}).output.trimmed(); }

    // Shows one setting and puts the keyboard on its control.
    void goTo(const QString& query)
    {
        ASSERT_EQ(session.kovrel({"settings"}).exitCode, 0);
        session.run("xdotool",
                    {"search", "--sync", "--onlyvisible", "--name", "Kovrel Settings", "windowactivate", "--sync"});
        session.run("xdotool", {"key", "ctrl+f"});
        session.run("xdotool", {"type", query});
        session.run("xdotool", {"key", "Return"});
    }

    void type(const QStringList& keys) { session.run("xdotool", QStringList{"key"} + keys); }

    QString value(const QString& key)
    {
        return QString::fromUtf8(session.kovrel({"preferences", "get", key}).output).trimmed();
    }

    bool becomes(const QString& key, const QString& wanted)
    {
        return UserSession::eventually([&] { return value(key) == wanted; });
    }

    bool isListening()
    {
        return UserSession::eventually([&] {
            const bool wasFree = keyboard.holdKeyboard();
            keyboard.letKeyboardGo();
            return !wasFree;
        });
    }

    // Whether so many files are there once a capture that is made now has been saved.
    bool hasSaved(int count)
    {
        session.kovrel({"capture", "area", "--rect", "0,0,9,9", "--save", "--wait"});
        return session.savedFiles().size() == count + 1;
    }
};

} // namespace

TEST_F(SettingsTest, ANewHotkeyIsTypedAndWorks)
{
    goTo("full screen shortcut");
    type({"space"});
    ASSERT_TRUE(isListening());
    keyboard.type({super, shift, digit3});
    EXPECT_TRUE(UserSession::eventually([&] { return keyboard.holdKeyboard(); })) << "given back";
    keyboard.letKeyboardGo();
    EXPECT_TRUE(hasSaved(0)) << "the hotkey that it was did nothing";

    type({"space"});
    ASSERT_TRUE(isListening());
    keyboard.type({control, alt, placeOfP});
    EXPECT_TRUE(becomes("hotkeyFullScreen", "Ctrl+Alt+P"));
    keyboard.type({super, shift, digit3});
    keyboard.type({control, alt, placeOfP});
    EXPECT_TRUE(UserSession::eventually([&] { return session.savedFiles().size() == 2; }));
    EXPECT_TRUE(hasSaved(2)) << "the old one is none any more";

    type({"space"});
    ASSERT_TRUE(isListening());
    type({"BackSpace"});
    EXPECT_TRUE(becomes("hotkeyFullScreen", "none"));
}

TEST_F(SettingsTest, FilesAreWrittenInTheFormatThatWasChosen)
{
    EXPECT_TRUE(hasSaved(0));
    goTo("heif");
    type({"Down"});
    EXPECT_TRUE(becomes("imageFormat", "jpeg"));
    EXPECT_TRUE(hasSaved(1));
    EXPECT_EQ(session.savedFiles().filter(".png").size(), 1);
    EXPECT_EQ(session.savedFiles().filter(".jpeg").size(), 1);
}

TEST_F(SettingsTest, CardsGoToTheCornerThatIsPicked)
{
    session.prepare({"afterCaptureActions=1"});
    const auto isAtLeft = [&] {
        const auto panels = painted.panels();
        return panels.size() == 1 && panels[0].right() < 640 && panels[0].top() > 400;
    };
    session.kovrel({"capture", "area", "--rect", "0,0,99,99", "--wait"});
    EXPECT_TRUE(UserSession::eventually([&] { return painted.panels().size() == 1; }));
    EXPECT_FALSE(isAtLeft());
    goTo("pile");
    type({"Left"});
    EXPECT_TRUE(becomes("previewPosition", "bottomLeft"));
    EXPECT_TRUE(UserSession::eventually(isAtLeft)) << "also the card that is there";
}

TEST_F(SettingsTest, ASmallerHistoryLosesTheOldestOnceThatIsConfirmed)
{
    session.prepare({"afterCaptureActions=2", "historyRetentionCount=27"});
    for (int count = 0; count < 27; ++count)
        ASSERT_EQ(session.kovrel({"capture", "area", "--rect", "0,0,9,9", "--wait"}).exitCode, 0);
    const auto kept = [&] {
        return QJsonDocument::fromJson(session.kovrel({"history", "--json"}).output).array().size();
    };
    ASSERT_EQ(kept(), 27);
    goTo("retention");
    const QByteArray window = active();
    for (const QString& answer : {QString("Escape"), QString("Tab")}) {
        type({"Home"});
        ASSERT_TRUE(UserSession::eventually([&] { return active() != window; })) << "it is asked";
        type({answer});
        if (answer == "Tab")
            type({"space"});
        ASSERT_TRUE(UserSession::eventually([&] { return active() == window; }));
        EXPECT_EQ(value("historyRetentionCount"), answer == "Tab" ? "25" : "27");
        EXPECT_EQ(kept(), answer == "Tab" ? 25 : 27);
    }
}

TEST_F(SettingsTest, KovrelStartsAtLoginAndSaysSoAgain)
{
    const QString entry = session.path("config/autostart/com.kovrel.Kovrel.desktop");
    goTo("autostart");
    type({"space"});
    EXPECT_TRUE(UserSession::eventually([&] { return QFile::exists(entry); }));
    QFile file(entry);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("/kovrel\" --background\n"));
    type({"Escape", "Escape"}); // the search, the window
    goTo("autostart");
    type({"space"});
    EXPECT_TRUE(UserSession::eventually([&] { return !QFile::exists(entry); })) << "it was shown as on";
}

TEST_F(SettingsTest, AFileOfSettingsComesBackAndADamagedOneChangesNothing)
{
    const QString file = session.path("home/Kovrel settings.json");
    session.prepare({"jpegQuality=0.35"});
    const auto choose = [&](const QString& query, const QString& path) {
        goTo(query);
        const QByteArray window = active();
        type({"space"});
        ASSERT_TRUE(UserSession::eventually([&] { return active() != window; })) << "a file is asked for";
        session.run("xdotool", {"key", "ctrl+a"});
        session.run("xdotool", {"type", path});
        type({"Return"});
        ASSERT_TRUE(UserSession::eventually([&] { return active() == window; }));
    };
    choose("export", file);
    ASSERT_TRUE(UserSession::eventually([&] { return QFile::exists(file); }));

    QFile whole(file);
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    QFile damaged(session.path("home/cut.json"));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write(whole.readAll().chopped(20));
    damaged.close();
    session.prepare({"jpegQuality=0.8"});
    choose("restore", damaged.fileName());
    EXPECT_EQ(value("jpegQuality"), "0.8");
    choose("restore", file);
    EXPECT_TRUE(becomes("jpegQuality", "0.35"));
}

} // namespace Kovrel
