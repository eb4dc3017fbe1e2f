#include "tests/e2e/UserSession.h"
#include "tests/support/PaintedScreen.h"
#include "tests/support/PictureDifference.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

namespace Kovrel {

namespace {

using Testing::UserSession;

QJsonArray history(UserSession& session, const QStringList& arguments = {})
{
    return QJsonDocument::fromJson(session.kovrel(QStringList{"history", "--json"} + arguments).output).array();
}

QString capture(UserSession& session)
{
    const auto answer = session.kovrel({"capture", "fullScreen", "--wait", "--json"});
    EXPECT_EQ(answer.exitCode, 0) << answer.error.constData();
    const QJsonObject object = answer.json();
    EXPECT_TRUE(QFile::exists(object["historyPath"].toString())) << answer.output.constData();
    return object["id"].toString();
}

bool hasEnded(UserSession& session)
{
    return UserSession::eventually([&] { return session.instancePid() == 0; });
}

// The files below Kovrel's folders that are named after this or hold it.
QStringList traces(UserSession& session, const QString& what)
{
    QStringList found;
    for (const QString& root : {session.path("data"), session.path("cache")})
        for (QDirIterator files(root, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories); files.hasNext();) {
            QFile file(files.next());
            if (file.fileName().contains(what) ||
                (file.open(QIODevice::ReadOnly) && file.readAll().contains(what.toUtf8())))
                found << file.fileName();
        }
    return found;
}

} // namespace

TEST(History, CapturesComeBackAfterARestart)
{
    Testing::VirtualDisplay display(QSize(320, 200));
    UserSession session(&display);
    session.prepare();
    const QString first = capture(session);
    session.kovrel({"quit"});
    ASSERT_TRUE(UserSession::eventually([&] { return session.instancePid() == 0; }));

    QJsonArray found = history(session);
    EXPECT_EQ(session.instancePid(), 0) << "looking starts nothing";
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(found[0].toObject()["id"].toString(), first);
    EXPECT_EQ(found[0].toObject()["pixelWidth"].toInt(), 320);
    EXPECT_EQ(found[0].toObject()["matches"], QJsonArray());

    const QString second = capture(session);
    found = history(session);
    ASSERT_EQ(found.size(), 2);
    EXPECT_EQ(found[0].toObject()["id"].toString(), second) << "newest first";

    const auto lines = session.kovrel({"history"}).output.trimmed().split('\n');
    ASSERT_EQ(lines.size(), 2);
    const auto fields = lines[0].split('\t');
    ASSERT_GE(fields.size(), 2);
    EXPECT_THAT(fields[0].toStdString(),
                testing::MatchesRegex("[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}"));
    EXPECT_EQ(fields[1], "fullScreen");
}

TEST(History, ACaptureThatNobodyWaitedForIsThereAfterTheEnd)
{
    Testing::VirtualDisplay display(QSize(320, 200));
    UserSession session(&display);
    session.prepare({"afterCaptureActions=0"});
    const std::function<void()> ends[] = {[&] { session.kovrel({"quit"}); },
                                          [&] { ::kill(pid_t(session.instancePid()), SIGTERM); },
                                          [&] { session.endBus(); }};
    int captures = 0;
    for (const auto& end : ends) {
        for (int number = 0; number < 3; ++number, ++captures)
            EXPECT_EQ(session.kovrel({"capture", "fullScreen"}).exitCode, 0);
        const auto pid = pid_t(session.instancePid());
        end();
        EXPECT_TRUE(UserSession::eventually([&] { return ::kill(pid, 0) != 0; }));
        EXPECT_EQ(history(session).size(), captures);
    }
}

TEST(History, AProgramThatQuitsAndOneThatStartsLoseNothingOfEachOther)
{
    Testing::VirtualDisplay display(QSize(320, 200));
    UserSession session(&display);
    session.prepare({"afterCaptureActions=0"});
    constexpr int rounds = 6;
    for (int round = 0; round < rounds; ++round) {
        EXPECT_EQ(session.kovrel({"capture", "fullScreen"}).exitCode, 0);
        session.kovrel({"quit"});
    }
    ASSERT_TRUE(hasEnded(session));
    EXPECT_TRUE(UserSession::eventually([&] { return history(session).size() == rounds; })) << history(session).size();
}

TEST(History, TwoProgramsOnOneFolderLoseNothingOfEachOther)
{
    Testing::VirtualDisplay display(QSize(320, 200));
    UserSession one(&display);
    UserSession other(&display);
    other.setVariable("XDG_DATA_HOME", one.path("data"));
    one.prepare({"afterCaptureActions=0"});
    other.prepare({"afterCaptureActions=0"});
    std::vector<QProcess*> captures;
    QSet<QString> reported;
    constexpr int rounds = 8;
    for (int round = 0; round < rounds; ++round)
        for (UserSession* session : {&one, &other})
            captures.push_back(&session->startKovrel({"capture", "fullScreen", "--wait", "--json"}));
    for (QProcess* capture : captures) {
        EXPECT_TRUE(capture->waitForFinished());
        reported << QJsonDocument::fromJson(capture->readAllStandardOutput()).object()["id"].toString();
    }
    ASSERT_EQ(reported.size(), 2 * rounds);
    for (UserSession* session : {&one, &other}) {
        session->kovrel({"quit"});
        EXPECT_TRUE(hasEnded(*session));
    }
    QSet<QString> found;
    for (const auto& entry : history(one))
        found << entry.toObject()["id"].toString();
    EXPECT_EQ(found, reported);
}

TEST(History, NothingOfADeletedCaptureIsThereOnceTheProgramHasEnded)
{
    const Testing::VirtualDisplay display({1300, 900});
    Testing::PaintedScreen painted(display.name());
    UserSession session(&display);
    session.start("openbox", {});
    session.prepare({"afterCaptureActions=0"});
    const QString words = session.path("words.png");
    session.run("convert", {"-size", "1300x900", "xc:white", "-font", "DejaVu-Sans", "-pointsize", "20", "-annotate",
                            "+40+60", "An unmistakable sentence", words});
    painted.setRootPicture(QImage(words).convertToFormat(QImage::Format_RGB32));
    session.kovrel({"capture", "ocrRegion", "--rect", "0,0,600,100", "--wait"});
    ASSERT_TRUE(UserSession::eventually([&] { return traces(session, "unmistakable").size() == 2; }))
        << "a sidecar and the index of words";
    const QString id = history(session, {"unmistakable"}).first().toObject()["id"].toString();
    EXPECT_GE(traces(session, id).size(), 4);
    session.kovrel({"recent"});
    session.run("xdotool",
                {"search", "--sync", "--onlyvisible", "--name", "Recent Captures", "windowactivate", "--sync"});
    session.run("xdotool", {"type", "unmistakable"});
    session.run("xdotool", {"key", "Return"}); // to the pictures
    EXPECT_TRUE(UserSession::eventually([&] {
        session.run("xdotool", {"key", "Delete"});
        return history(session).isEmpty();
    }));
    session.kovrel({"quit"});
    ASSERT_TRUE(hasEnded(session));
    EXPECT_TRUE(UserSession::eventually([&] { return traces(session, "unmistakable").isEmpty(); }));
    EXPECT_EQ(traces(session, id), QStringList());
}

TEST(History, ACaptureThatCantBeRecordedIsSaved)
{
    Testing::VirtualDisplay display(QSize(320, 200));
    UserSession session(&display);
    session.prepare({"afterCaptureActions=0"});
    QFile blocked(session.path("data/Kovrel/History"));
    QDir(blocked.fileName()).removeRecursively();
    ASSERT_TRUE(blocked.open(QIODevice::WriteOnly));
    session.kovrel({"capture", "fullScreen"});
    EXPECT_TRUE(UserSession::eventually([&] { return session.savedFiles().size() == 1; }));
}

TEST(History, TheCommandNarrowsAndSaysWhenThereIsNothing)
{
    Testing::VirtualDisplay display(QSize(320, 200));
    UserSession session(&display);
    EXPECT_EQ(session.kovrel({"history"}).exitCode, 1);
    session.prepare({"afterCaptureActions=0"});
    capture(session);

    struct Case {
        QStringList arguments;
        int exitCode;
    };

    for (const Case& c : {Case{{"--kind", "fullScreen"}, 0}, Case{{"--kind", "window"}, 1}, Case{{"--kind", "x"}, 2},
                          Case{{"--app", "nobody"}, 1}, Case{{"--list", "none"}, 1}, Case{{"screen"}, 0},
                          Case{{"screen", "nowhere"}, 1}, Case{{"--date", "today"}, 0}, Case{{"--date", "1999"}, 1},
                          Case{{"--date", "soon"}, 2}})
        EXPECT_EQ(session.kovrel(QStringList{"history"} + c.arguments).exitCode, c.exitCode)
            << qPrintable(c.arguments.join(' '));
    session.kovrel({"preferences", "set", "historyEnabled", "false"});
    EXPECT_TRUE(UserSession::eventually([&] { return session.kovrel({"history"}).exitCode == 1; }))
        << "what is not saved goes when the history is turned off";
}

TEST(History, ItsWindowFindsACaptureByItsWordsAndCopiesIt)
{
    const Testing::VirtualDisplay display({1300, 900});
    Testing::PaintedScreen painted(display.name());
    UserSession session(&display);
    session.start("openbox", {});
    session.prepare({"afterCaptureActions=0"});
    const QString words = session.path("words.png");
    session.run("convert", {"-size", "1300x900", "xc:white", "-font", "DejaVu-Sans", "-pointsize", "20", "-annotate",
                            "+40+60", "An unmistakable sentence", words});
    const QImage screen = QImage(words).convertToFormat(QImage::Format_RGB32);
    painted.setRootPicture(screen);
    ASSERT_EQ(session.kovrel({"capture", "ocrRegion", "--rect", "0,0,600,100", "--wait"}).exitCode, 0);
    capture(session);
    EXPECT_EQ(history(session, {"unmistakable"}).size(), 1) << "what was read is found without being read again";

    ASSERT_EQ(session.kovrel({"recent"}).exitCode, 0);
    session.run("xdotool",
                {"search", "--sync", "--onlyvisible", "--name", "Recent Captures", "windowactivate", "--sync"});
    session.run("xdotool", {"type", "unmistakable"});
    session.run("xdotool", {"key", "Return"}); // to the pictures
    const auto copied = [&] {
        session.run("xdotool", {"key", "ctrl+c"});
        const auto png = session.run("xclip", {"-selection", "clipboard", "-t", "image/png", "-o"});
        return bool(Testing::sameColors(QImage::fromData(png.output), screen.copy(0, 0, 600, 100)));
    };
    EXPECT_TRUE(UserSession::eventually(copied));
}

} // namespace Kovrel
