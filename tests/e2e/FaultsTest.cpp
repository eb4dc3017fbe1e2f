#include "tests/e2e/UserSession.h"
#include "tests/support/PaintedScreen.h"
#include "tests/support/TestPictures.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

namespace Kovrel {

namespace {

using Testing::UserSession;

struct FaultsTest : testing::Test {
    Testing::VirtualDisplay display{QSize(320, 200)};
    UserSession session{&display};
};

mode_t permissions(const QString& path)
{
    struct stat status{};
    return stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & 07777 : 0;
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFile(const QString& path, const QByteArray& content)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

} // namespace

TEST_F(FaultsTest, CommandsThatMakeNoSenseAreUsageErrors)
{
    const QStringList lines[] = {{"frob"},
                                 {"capture"},
                                 {"capture", "sideways"},
                                 {"capture", "fullScreen", "--rect", "1,2,3,4"},
                                 {"capture", "area", "--rect", "1,2,3"},
                                 {"capture", "area", "--rect", "1,2,0,4"},
                                 {"capture", "area", "--rect", "1,2,nan,4"},
                                 {"capture", "fullScreen", "--output"},
                                 {"capture", "fullScreen", "--wait=yes"},
                                 {"capture", "fullScreen", "--save", "--output", "a.png"},
                                 {"preferences", "set", "jpegQuality"},
                                 {"sign-in"},
                                 {"pin"},
                                 {"pin", "a.png", "b.png"},
                                 {"pick-color", "--format=cmyk"}};
    for (const QStringList& line : lines) {
        const auto result = session.kovrel(line);
        EXPECT_EQ(result.exitCode, 2) << qPrintable(line.join(' '));
        EXPECT_TRUE(result.error.endsWith("--help\n")) << result.error.constData();
        EXPECT_EQ(result.error.count('\n'), 1) << result.error.constData();
    }
    EXPECT_EQ(session.instancePid(), 0) << "a usage error started the program";
}

TEST_F(FaultsTest, CapturingNeedsAnAccount)
{
    const auto refused = session.kovrel({"capture", "fullScreen"});
    EXPECT_EQ(refused.exitCode, 3);
    EXPECT_TRUE(refused.error.contains("sign-in --local"));
    EXPECT_EQ(session.kovrel({"sign-in", "--local"}).exitCode, 0);
    EXPECT_EQ(session.kovrel({"capture", "fullScreen"}).exitCode, 0);
    EXPECT_EQ(session.kovrel({"sign-out"}).exitCode, 0);
    EXPECT_EQ(session.kovrel({"capture", "fullScreen"}).exitCode, 3);
}

TEST_F(FaultsTest, WhatIsTheUsersIsReadableByTheUserAlone)
{
    session.prepare();
    session.kovrel({"capture", "fullScreen", "--wait"});
    EXPECT_EQ(permissions(session.path("data/Kovrel")), 0700u);
    EXPECT_EQ(permissions(session.path("data/Kovrel/kovrel.session.token")), 0600u);
    EXPECT_EQ(permissions(session.path("cache/kovrel/tmp")), 0700u);
    ASSERT_EQ(session.savedFiles().size(), 1);
}

TEST_F(FaultsTest, ACaptureIsKeptWhereverItsFolderIsBroken)
{
    session.prepare();
    writeFile(session.path("blocked"), "a file");

    struct Case {
        const char* what;
        QString folder;
        bool isKeptElsewhere;
    };

    const Case cases[] = {
        {"the default one", session.saveFolder(), false},
        {"missing", session.path("missing"), true},
        {"replaced by a file", "file://" + session.path("blocked"), true},
        {"nobody may write there", "/proc", true},
    };
    int expected = 0;
    for (const Case& c : cases) {
        session.kovrel({"preferences", "set", "saveLocationBookmark", c.folder});
        const auto result = session.kovrel({"capture", "fullScreen", "--save", "--wait"});
        EXPECT_EQ(result.exitCode, c.isKeptElsewhere ? 4 : 0) << c.what << ": " << result.error.constData();
        EXPECT_EQ(result.error.contains("kept as"), c.isKeptElsewhere) << result.error.constData();
        EXPECT_EQ(session.savedFiles().size(), ++expected) << c.what;
    }
}

TEST_F(FaultsTest, DamagedAndUnwritablePreferencesDoNoHarm)
{
    const QString file = session.path("config/kovrel/kovrel.conf");
    writeFile(file, "[General]\nselfTimerSeconds=soon\nimageFormat=jpeg\njpegQu");
    EXPECT_EQ(session.kovrel({"preferences", "get", "selfTimerSeconds"}).output, "5\n");
    EXPECT_EQ(session.kovrel({"preferences", "get", "imageFormat"}).output, "jpeg\n");
    EXPECT_EQ(QDir(session.path("config/kovrel")).entryList({"*unreadable*"}, QDir::Files).size(), 1);
    for (const auto& [value, exitCode] : {std::pair{"0.5", 0}, {"loud", 2}})
        EXPECT_EQ(session.kovrel({"preferences", "set", "jpegQuality", value}).exitCode, exitCode);
    EXPECT_EQ(session.kovrel({"preferences", "get", "jpegQuality"}).output, "0.5\n");
    EXPECT_EQ(session.kovrel({"preferences", "set", "hotkeyArea", "Ctrl+Alt+Print"}).exitCode, 0);
    EXPECT_EQ(session.kovrel({"preferences", "get", "hotkeyArea"}).output, "Ctrl+Alt+Print\n");
    EXPECT_EQ(session.kovrel({"preferences", "reset", "hotkeyArea"}).exitCode, 0);
    EXPECT_EQ(session.kovrel({"preferences", "get", "hotkeyArea"}).output, "Super+Shift+4\n");
    EXPECT_EQ(session.kovrel({"preferences", "get", "nonsense"}).exitCode, 1);
    EXPECT_EQ(session.kovrel({"preferences", "set", "saveLocationBookmark", "Pictures"}).exitCode, 2);
    EXPECT_EQ(session.instancePid(), 0) << "settings need no running program";

    ASSERT_TRUE(QDir(session.path("config/kovrel")).removeRecursively());
    writeFile(session.path("config/kovrel"), "a file where the folder should be");
    EXPECT_EQ(session.kovrel({"preferences", "set", "jpegQuality", "0.5"}).exitCode, 4);
}

TEST_F(FaultsTest, AFullDiskLosesNoSettingsAndIsTold)
{
    session.prepare({"imageFormat=tiff"});
    const QString settings = session.path("config/kovrel/kovrel.conf");
    const QString token = session.path("data/Kovrel/kovrel.session.token");
    const auto contents = [&] { return std::pair(readFile(settings), readFile(token)); };
    const auto before = contents();
    const auto onFullDisk = [](const QString& line) {
        return QStringList{"-c", "ulimit -f 0; exec " KOVREL_PROGRAM " " + line};
    };
    for (const char* line : {"preferences set imageFormat jpeg", "preferences reset imageFormat", "sign-in --local"}) {
        const auto result = session.run("sh", onFullDisk(line));
        EXPECT_EQ(result.exitCode, 4) << line;
        EXPECT_TRUE(result.error.contains("could not be stored: ")) << result.error.constData();
    }
    session.start("sh", onFullDisk("--background"));
    ASSERT_TRUE(UserSession::eventually([&] { return session.instancePid() != 0; }));
    for (const QStringList& line : {QStringList{"preferences", "set", "imageFormat", "jpeg"}, {"sign-in", "--local"}})
        EXPECT_EQ(session.kovrel(line).exitCode, 4) << qPrintable(line.join(' '));
    EXPECT_EQ(contents(), before);
    EXPECT_EQ(permissions(settings), 0600u);
    EXPECT_EQ(permissions(session.path("config/kovrel")), 0700u);
}

TEST_F(FaultsTest, MemoryThatCanNotBeHadCostsOneCommandAndTakesOneLine)
{
    const QString picture = session.path("picture.png");
    ASSERT_TRUE(Testing::testPicture({640, 480}, Testing::Texture::noise).save(picture));
    writeFile(session.path("none.json"), "[]");
    const QString annotate = "annotate " + picture + " --annotations " + session.path("none.json") + " --output ";
    const QStringList lines{"text " + picture, "codes " + picture, annotate + session.path("a.png"), "preferences list",
                            "history"};
    const auto expectOneLine = [](const UserSession::Result& result, const QString& what) {
        EXPECT_TRUE(QList<int>({0, 1, 4}).contains(result.exitCode)) << qPrintable(what) << ": " << result.exitCode;
        EXPECT_EQ(result.error.count('\n'), result.exitCode == 0 ? 0 : 1)
            << qPrintable(what) << result.error.constData();
    };
    for (const int kilobytes : {30'000, 70'000, 90'000, 102'000})
        for (const QString& line : lines)
            expectOneLine(
                session.run("sh", {"-c", QString("ulimit -v %1; exec " KOVREL_PROGRAM " ").arg(kilobytes) + line}),
                QString("%1 with %2 KB").arg(line).arg(kilobytes));
    EXPECT_EQ(session.run("sh", {"-c", "ulimit -v 400000; exec " KOVREL_PROGRAM " " + lines[1]}).exitCode, 1)
        << "a small picture takes little";

    session.prepare();
    session.kovrel({"capture", "fullScreen", "--wait"});
    const qint64 pid = session.instancePid();
    const qint64 used = session.run("sh", {"-c", QString("awk '/VmSize/{print $2}' /proc/%1/status").arg(pid)})
                            .output.trimmed()
                            .toLongLong();
    for (const int spare : {20'000, 40'000, 80'000}) {
        const rlimit limit{rlim_t(used + spare) * 1024, RLIM_INFINITY};
        ASSERT_EQ(::prlimit(pid_t(pid), RLIMIT_AS, &limit, nullptr), 0);
        for (const QString& line : lines + QStringList{"capture fullScreen --wait"})
            expectOneLine(session.kovrel(line.split(' ')), line + " in the program");
    }
    EXPECT_EQ(session.instancePid(), pid);
    const rlimit unlimited{RLIM_INFINITY, RLIM_INFINITY};
    ASSERT_EQ(::prlimit(pid_t(pid), RLIMIT_AS, &unlimited, nullptr), 0);
    EXPECT_EQ(session.kovrel({"capture", "fullScreen", "--wait"}).exitCode, 0) << "and the next one works again";
}

TEST_F(FaultsTest, TwoFirstStartsAtOnceLeaveOneInstanceThatTakesBothCaptures)
{
    session.prepare({"selfTimerSeconds=1"});
    std::vector<QProcess*> clients;
    clients.reserve(4);
    for (int i = 0; i < 4; ++i)
        clients.push_back(&session.startKovrel({"preferences", "list"}));
    for (int i = 0; i < 2; ++i)
        clients.push_back(&session.startKovrel({"capture", "timed", "--wait"}));
    session.kovrel({"capture", "fullScreen"});
    const qint64 pid = session.instancePid();
    EXPECT_GT(pid, 0);
    for (QProcess* client : clients)
        EXPECT_TRUE(client->waitForFinished(15000));
    EXPECT_EQ(session.instancePid(), pid);
    EXPECT_EQ(session.kovrel({}).exitCode, 0) << "a second start brings the first one forward";
    EXPECT_EQ(session.instancePid(), pid);
}

TEST_F(FaultsTest, WhatAcceptsAndSaysNothingIsGivenUp)
{
    session.prepare();
    const auto expectGivenUp = [this](const QStringList& line, const char* what, const QStringList& variables = {}) {
        const auto result = session.run("env", variables + QStringList{KOVREL_PROGRAM} + line);
        EXPECT_EQ(result.exitCode, 4) << what;
        EXPECT_EQ(result.error.count('\n'), 1) << what << ": " << result.error.constData();
    };
    session.kovrel({"capture", "fullScreen", "--wait"});
    const auto pid = pid_t(session.instancePid());
    ::kill(pid, SIGSTOP);
    for (const QStringList& line : {QStringList{}, {"preferences", "list"}, {"capture", "fullScreen"}})
        expectGivenUp(line, "a stopped program");
    ::kill(pid, SIGCONT);
    EXPECT_EQ(session.kovrel({"capture", "fullScreen", "--wait"}).exitCode, 0);
    session.kovrel({"quit"});
    ASSERT_TRUE(UserSession::eventually([&] { return session.instancePid() == 0; }));

    QProcess& other = session.start("/usr/bin/python3", {"-c", "import dbus, time\n"
                                                               "dbus.SessionBus().request_name('com.kovrel.Kovrel')\n"
                                                               "time.sleep(60)\n"});
    ASSERT_TRUE(UserSession::eventually([&] { return session.instancePid() != 0; }));
    expectGivenUp({"preferences", "list"}, "another program under the name");
    other.kill();
    ASSERT_TRUE(UserSession::eventually([&] { return session.instancePid() == 0; }));

    QProcess& silent = session.start("/usr/bin/python3", {"-c",
                                                          "import socket, sys, time\n"
                                                          "bus = socket.socket(socket.AF_UNIX)\n"
                                                          "bus.bind(sys.argv[1]); bus.listen()\n"
                                                          "display = socket.create_server(('127.0.0.1', 0))\n"
                                                          "print(display.getsockname()[1], flush=True)\n"
                                                          "time.sleep(60)\n",
                                                          session.path("silent")});
    ASSERT_TRUE(silent.waitForReadyRead());
    const QString display = QString("DISPLAY=localhost:%1").arg(silent.readLine().trimmed().toInt() - 6000);
    expectGivenUp({"capture", "fullScreen"}, "a silent display", {display});
    const QString bus = "DBUS_SESSION_BUS_ADDRESS=unix:path=" + session.path("silent");
    expectGivenUp({"preferences", "list"}, "a silent bus", {bus});
}

TEST_F(FaultsTest, TheProgramGoesWithItsBus)
{
    session.prepare();
    session.kovrel({"capture", "fullScreen", "--wait"});
    const auto pid = pid_t(session.instancePid());
    ASSERT_GT(pid, 0);
    session.endBus();
    EXPECT_TRUE(UserSession::eventually([&] { return ::kill(pid, 0) != 0; })) << "nobody could find it any more";
}

TEST_F(FaultsTest, QuittingWithoutAReasonKeepsTheProgram)
{
    session.prepare();
    const auto hasWindow = [this] {
        return session.run("xwininfo", {"-root", "-tree"}).output.contains("\"Kovrel\": (\"kovrel\" \"Kovrel\")");
    };
    session.startKovrel({});
    EXPECT_TRUE(UserSession::eventually(hasWindow)) << "without a tray the window is the way in";
    const qint64 pid = session.instancePid();
    const auto quit = [this](const char* reason) {
        session.run("dbus-send", {"--session", "--print-reply", "--dest=com.kovrel.Kovrel", "/com/kovrel/Kovrel",
                                  "com.kovrel.Kovrel.Quit", QString("string:") + reason});
    };
    quit("");
    EXPECT_TRUE(UserSession::eventually([&] { return !hasWindow(); }));
    EXPECT_EQ(session.instancePid(), pid);
    session.kovrel({});
    EXPECT_TRUE(UserSession::eventually(hasWindow)) << "a second start brings the window back";
    quit("log-out");
    EXPECT_TRUE(UserSession::eventually([&] { return session.instancePid() == 0; }));
    EXPECT_EQ(session.kovrel({"quit"}).exitCode, 1);

    session.kovrel({"capture", "fullScreen"});
    ::kill(pid_t(session.instancePid()), SIGTERM);
    EXPECT_TRUE(UserSession::eventually([&] { return session.instancePid() == 0; })) << "SIGTERM ends it";
}

TEST_F(FaultsTest, WithATrayTheProgramStartsInIt)
{
    session.prepare();
    session.start("openbox", {"--sm-disable"});
    session.start("tint2", {});
    const Testing::PaintedScreen screen(display.name());
    ASSERT_TRUE(UserSession::eventually([&] { return screen.hasOwner("_NET_SYSTEM_TRAY_S0"); }));
    session.startKovrel({});
    // Those that are seen: some are made before they are needed.
    const auto windowWidths = [this] {
        const QString tree = session.run("xwininfo", {"-root", "-tree"}).output;
        QList<int> widths;
        const QRegularExpression window(R"re((0x[0-9a-f]+) .*\("kovrel" "Kovrel"\)\s+(\d+)x)re");
        for (const auto& match : window.globalMatch(tree))
            if (session.run("xwininfo", {"-id", match.captured(1), "-stats"}).output.contains("IsViewable"))
                widths << match.captured(2).toInt();
        return widths;
    };
    EXPECT_TRUE(UserSession::eventually([&] { return !windowWidths().isEmpty(); }));
    EXPECT_LT(windowWidths().value(0), 100) << "the tray item, and no window";
    EXPECT_EQ(windowWidths().size(), 1);
}

TEST_F(FaultsTest, AKilledSaveLeavesNothingBehindAtTheNextStart)
{
    session.prepare({"showCursorInCapture=false"});
    for (int round = 0; round < 6; ++round) {
        session.kovrel({"capture", "fullScreen"});
        QProcess& capture = session.startKovrel({"capture", "fullScreen", "--save", "--wait"});
        capture.waitForFinished(round);
        ::kill(pid_t(session.instancePid()), SIGKILL);
        UserSession::eventually([&] { return session.instancePid() == 0; });
    }
    session.kovrel({"capture", "fullScreen", "--wait"});
    EXPECT_TRUE(UserSession::eventually([&] {
        for (const QString& name : session.savedFiles())
            if (QFileInfo(session.saveFolder() + '/' + name).size() == 0)
                return false;
        return true;
    })) << "empty reservations are swept at the start";
    for (const QString& name : session.savedFiles())
        EXPECT_FALSE(QImage(session.saveFolder() + '/' + name).isNull()) << qPrintable(name);
}

TEST_F(FaultsTest, SignInAnswersNobodyAskedForAreRefused)
{
    session.kovrel({"capture", "fullScreen"});
    for (const char* url :
         {"kovrel://auth-callback?state=guessed&token=t", "kovrel://auth-callback", "kovrel://elsewhere"})
        EXPECT_EQ(session.kovrel({url}).exitCode, 0);
    EXPECT_EQ(session.kovrel({"capture", "fullScreen"}).exitCode, 3);
}

TEST_F(FaultsTest, ADeadKeychainDoesNotHangTheProgram)
{
    // Something owns the keychain's name and never answers.
    session.start("/usr/bin/python3", {"-c", "import dbus, dbus.mainloop.glib, time\n"
                                             "bus = dbus.SessionBus()\n"
                                             "bus.request_name('org.freedesktop.secrets')\n"
                                             "time.sleep(60)\n"});
    ASSERT_TRUE(UserSession::eventually([&] {
        return session
                   .run("dbus-send", {"--session", "--print-reply", "--dest=org.freedesktop.DBus", "/",
                                      "org.freedesktop.DBus.GetNameOwner", "string:org.freedesktop.secrets"})
                   .exitCode == 0;
    }));
    EXPECT_EQ(session.kovrel({"capture", "fullScreen"}).exitCode, 3) << "not signed in, after the deadline";
    EXPECT_EQ(session.kovrel({"sign-in", "--local"}).exitCode, 0);
    EXPECT_EQ(session.kovrel({"capture", "fullScreen"}).exitCode, 0);
}

TEST(Desktops, WhatCanNotBeCapturedIsSaidInOneLine)
{
    {
        UserSession session(nullptr);
        session.prepare();
        const auto result = session.kovrel({"capture", "fullScreen"});
        EXPECT_EQ(result.exitCode, 4);
        EXPECT_TRUE(result.error.contains("there is no display")) << result.error.constData();
        session.setVariable("DISPLAY", ":4711");
        EXPECT_TRUE(session.kovrel({"capture", "fullScreen"}).error.contains("can't be reached"));
    }
    Testing::VirtualDisplay display({320, 200});
    {
        UserSession session(&display);
        session.setVariable("XDG_SESSION_TYPE", "wayland");
        session.prepare();
        const auto result = session.kovrel({"capture", "fullScreen"});
        EXPECT_EQ(result.exitCode, 3);
        EXPECT_TRUE(result.error.contains("X11 (Xorg) session")) << result.error.constData();
        EXPECT_TRUE(UserSession::eventually([&] {
            return session.run("xwininfo", {"-root", "-tree"}).output.contains("\"Kovrel\": (\"kovrel\" \"Kovrel\")");
        })) << "a window says so too";
        EXPECT_TRUE(session.savedFiles().isEmpty());
    }
    {
        UserSession session(&display, false);
        session.prepare();
        const auto result = session.kovrel({"capture", "fullScreen", "--wait"});
        EXPECT_EQ(result.exitCode, 0) << "without a bus the capture is taken in the command's own process";
        EXPECT_TRUE(result.error.contains("no session bus")) << result.error.constData();
        EXPECT_EQ(session.savedFiles().size(), 1);
        EXPECT_EQ(session.kovrel({"kovrel://elsewhere"}).exitCode, 0) << "it ends";
        QProcess& settings = session.startKovrel({"settings"});
        const auto closeWindow = [&] {
            session.run("xdotool", {"search", "--onlyvisible", "--name", "Settings", "windowfocus", "key", "ctrl+w"});
            return settings.waitForFinished(500);
        };
        EXPECT_FALSE(settings.waitForFinished(2000)) << "a window stays";
        EXPECT_TRUE(UserSession::eventually(closeWindow)) << "until it is closed";
    }
}

} // namespace Kovrel
