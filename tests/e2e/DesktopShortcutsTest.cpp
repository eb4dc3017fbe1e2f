#include "tests/e2e/UserSession.h"

#include <QFile>

#include <gtest/gtest.h>

#include <csignal>

namespace Kovrel {

using Testing::UserSession;

namespace {

// The settings as GNOME declares them; the second one as its older versions do.
constexpr const char* schemas = R"(<schemalist>
  <schema id="org.gnome.shell.keybindings" path="/org/gnome/shell/keybindings/">
    <key name="screenshot" type="as"><default>["&lt;Super&gt;&lt;Shift&gt;3", "&lt;Shift&gt;Print"]</default></key>
    <key name="screenshot-window" type="as"><default>["&lt;Alt&gt;Print"]</default></key>
    <key name="show-screenshot-ui" type="as"><default>["&lt;Shift&gt;&lt;Mod4&gt;4"]</default></key>
    <key name="toggle-overview" type="as"><default>["&lt;Super&gt;&lt;Shift&gt;5"]</default></key>
  </schema>
  <schema id="org.gnome.settings-daemon.plugins.media-keys" path="/org/gnome/settings-daemon/plugins/media-keys/">
    <key name="window-screenshot" type="s"><default>"&lt;Shift&gt;&lt;Super&gt;5"</default></key>
  </schema>
</schemalist>
)";

struct DesktopShortcutsTest : testing::Test {
    Testing::VirtualDisplay display;
    UserSession session{&display};

    QProcess& start()
    {
        QProcess& program = session.startKovrel({"--background"});
        EXPECT_TRUE(UserSession::eventually([&] { return session.instancePid() != 0; }));
        return program;
    }

    void quit()
    {
        session.kovrel({"quit"});
        EXPECT_TRUE(UserSession::eventually([&] { return session.instancePid() == 0; }));
    }
};

struct GnomeShortcutsTest : DesktopShortcutsTest {
    void SetUp() override
    {
        QFile file(session.path("data/test.gschema.xml"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(schemas);
        file.close();
        ASSERT_EQ(session.run("glib-compile-schemas", {session.path("data")}).exitCode, 0);
        session.setVariable("GSETTINGS_SCHEMA_DIR", session.path("data"));
        session.setVariable("GSETTINGS_BACKEND", "keyfile");
        session.setVariable("XDG_CURRENT_DESKTOP", "ubuntu:GNOME");
        session.prepare();
    }

    // Those of screenshots, and at the end the one that is none.
    QStringList bindings()
    {
        QStringList values;
        for (const char* key : {"screenshot", "screenshot-window", "show-screenshot-ui", "toggle-overview"})
            values << QString(session.run("gsettings", {"get", "org.gnome.shell.keybindings", key}).output).trimmed();
        return values << QString(session.run("gsettings", {"get", mediaKeys, "window-screenshot"}).output).trimmed();
    }

    bool become(const QStringList& wanted)
    {
        return UserSession::eventually([&] { return bindings() == wanted; });
    }

    static constexpr const char* mediaKeys = "org.gnome.settings-daemon.plugins.media-keys";
    const QStringList usual{"['<Super><Shift>3', '<Shift>Print']", "['<Alt>Print']", "['<Shift><Mod4>4']",
                            "['<Super><Shift>5']", "'<Shift><Super>5'"};
    const QStringList taken{"['<Shift>Print']", "['<Alt>Print']", "@as []", "['<Super><Shift>5']", "''"};
};

} // namespace

TEST_F(GnomeShortcutsTest, StepAsideWhileKovrelRuns)
{
    ASSERT_EQ(bindings(), usual);
    start();
    EXPECT_TRUE(become(taken));
    EXPECT_EQ(session.kovrel({"preferences", "get", "kovrelDisabledNativeHotKeys"}).output.simplified(), "28, 30, 184");

    session.kovrel({"sign-out"});
    EXPECT_TRUE(become(usual));
    session.kovrel({"sign-in", "--local"});
    EXPECT_TRUE(become(taken));
    session.kovrel({"preferences", "set", "hotkeyArea", "Print"});
    EXPECT_TRUE(become({taken[0], taken[1], usual[2], taken[3], taken[4]}));
    quit();
    EXPECT_TRUE(become(usual));
}

TEST_F(GnomeShortcutsTest, ComeBackAfterACrash)
{
    QProcess& program = start();
    EXPECT_TRUE(become(taken));
    program.kill();
    program.waitForFinished();
    session.run("gsettings", {"set", "org.gnome.shell.keybindings", "show-screenshot-ui", "['<Super>s']"});
    start();
    session.kovrel({"preferences", "set", "hotkeyFullScreen", "none"});
    EXPECT_TRUE(become({usual[0], usual[1], "['<Super>s']", usual[3], "''"}));
    quit();
    EXPECT_TRUE(become({usual[0], usual[1], "['<Super>s']", usual[3], usual[4]}));
}

TEST_F(GnomeShortcutsTest, ComeBackHoweverTheProgramEnds)
{
    for (const int signal : {SIGINT, SIGHUP, SIGTERM, 0}) {
        QProcess& program = start();
        EXPECT_TRUE(become(taken)) << signal;
        if (signal != 0)
            ::kill(pid_t(program.processId()), signal);
        else
            display.end();
        EXPECT_TRUE(program.waitForFinished(20000)) << signal;
        EXPECT_TRUE(become(usual)) << signal << ": " << program.readAllStandardError().constData();
    }
}

TEST_F(DesktopShortcutsTest, OfKdeStepAsideToo)
{
    const auto keys = [&](const char* action) {
        const auto answer =
            session.run("dbus-send", {"--session", "--print-reply=literal", "--dest=org.kde.kglobalaccel",
                                      "/kglobalaccel", "org.kde.KGlobalAccel.shortcut",
                                      QString("array:string:org.kde.spectacle.desktop,%1,,").arg(action)});
        return answer.output.simplified();
    };
    const QByteArray usual = "array [ int32 301989940 int32 16777225 ]"; // Super+Shift+4, Print
    const QByteArray taken = "array [ int32 16777225 ]";
    QProcess& service = session.start("/usr/bin/python3", {KGLOBALACCEL});
    ASSERT_TRUE(service.waitForReadyRead());
    ASSERT_EQ(keys("RectangularRegionScreenShot"), usual);
    const QByteArray other = keys("FullScreenScreenShot");
    session.setVariable("XDG_CURRENT_DESKTOP", "KDE");
    session.prepare();
    start();
    EXPECT_TRUE(UserSession::eventually([&] { return keys("RectangularRegionScreenShot") == taken; }));
    quit();
    EXPECT_TRUE(UserSession::eventually([&] { return keys("RectangularRegionScreenShot") == usual; }));
    EXPECT_EQ(keys("FullScreenScreenShot"), other);
}

} // namespace Kovrel
