#include "tests/e2e/UserSession.h"
#include "tests/support/PaintedScreen.h"
#include "tests/support/Patterns.h"
#include "tests/support/PictureDifference.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The program as it is installed, in a folder that it was not configured for.
struct InstallationTest : testing::Test {
    Testing::VirtualDisplay display;
    Testing::UserSession session{&display};
    QString prefix = session.path("prefix");

    void SetUp() override
    {
        const auto installed = session.run(CMAKE_PROGRAM, {"--install", BUILD_FOLDER, "--prefix", prefix});
        ASSERT_EQ(installed.exitCode, 0) << installed.error.constData();
    }

    Testing::UserSession::Result kovrel(const QStringList& arguments)
    {
        return session.run(prefix + "/bin/kovrel", arguments);
    }

    void expectSuccess(const QString& program, const QStringList& arguments)
    {
        const auto result = session.run(program, arguments);
        EXPECT_EQ(result.exitCode, 0) << result.output.constData() << result.error.constData();
        EXPECT_EQ(result.error, "") << qPrintable(program);
    }
};

} // namespace

TEST_F(InstallationTest, TheProgramFindsItsPartsInItsNewPlace)
{
    Testing::PaintedScreen painted(display.name());
    const QImage screen = Testing::pattern({1280, 800});
    painted.setRootPicture(screen);
    painted.movePointer({1279, 799});
    EXPECT_TRUE(kovrel({"--version"}).output.startsWith("kovrel "));
    kovrel({"sign-in", "--local"});
    kovrel({"preferences", "set", "showCursorInCapture", "false"});
    EXPECT_EQ(kovrel({"capture", "fullScreen", "--output", "a.png"}).exitCode, 0);
    EXPECT_TRUE(
        Testing::identicalPicture(QImage(session.path("home/a.png")).convertToFormat(QImage::Format_RGB32), screen));
    EXPECT_EQ(kovrel({"capture", "fullScreen", "--output", "a.heic"}).exitCode, 0);
    EXPECT_EQ(contentOf(session.path("home/a.heic")).mid(4, 4), "ftyp");
    const QString maps = QString("/proc/%1/maps").arg(session.instancePid());
    for (const char* part :
         {"/lib/kovrel/libkovrel-app.so", "/lib/kovrel/libkovrel-heif.so", "/lib/kovrel/libkovrel-sound.so"})
        EXPECT_TRUE(Testing::UserSession::eventually([&] {
            return contentOf(maps).contains((prefix + part).toUtf8());
        })) << part;
    const auto shot = session.run(prefix + "/bin/kovrel-screencapture", {"-x", "-t", "png", session.path("b.png")});
    EXPECT_EQ(shot.exitCode, 0) << shot.error.constData();
}

TEST_F(InstallationTest, TheBusCanStartIt)
{
    const QString services = session.path("data/dbus-1/services");
    QDir().mkpath(services);
    ASSERT_TRUE(QFile::copy(prefix + "/share/dbus-1/services/com.kovrel.Kovrel.service",
                            services + "/com.kovrel.Kovrel.service"));
    session.run("dbus-send", {"--session", "--print-reply", "--dest=org.freedesktop.DBus", "/org/freedesktop/DBus",
                              "org.freedesktop.DBus.ReloadConfig"});
    const auto answer =
        session.run("dbus-send", {"--session", "--print-reply", "--dest=com.kovrel.Kovrel", "/com/kovrel/Kovrel",
                                  "com.kovrel.Kovrel.Run", "array:string:preferences,get,jpegQuality"});
    EXPECT_TRUE(answer.output.contains("\"0.9")) << answer.error.constData();
    EXPECT_EQ(QFile::symLinkTarget(QString("/proc/%1/exe").arg(session.instancePid())), prefix + "/bin/kovrel");
}

TEST_F(InstallationTest, WhatDesktopsReadIsValid)
{
    const QString share = prefix + "/share";
    expectSuccess("desktop-file-validate", {share + "/applications/com.kovrel.Kovrel.desktop",
                                            share + "/kovrel/autostart/com.kovrel.Kovrel.desktop"});
    expectSuccess("appstreamcli",
                  {"validate", "--no-net", "--no-color", share + "/metainfo/com.kovrel.Kovrel.metainfo.xml"});
    for (const char* page : {"kovrel.1", "kovrel-screencapture.1"})
        expectSuccess("sh", {"-c", "gzip -dc \"$0\" | groff -man -ww -z -Tutf8", share + "/man/man1/" + page + ".gz"});
    for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
        const QImage icon(QString("%1/icons/hicolor/%2x%2/apps/com.kovrel.Kovrel.png").arg(share).arg(size));
        EXPECT_EQ(icon.size(), QSize(size, size));
        EXPECT_EQ(qAlpha(icon.pixel(size / 2, size / 2)), 255) << "an empty picture";
    }
}

TEST_F(InstallationTest, ThePageOfTheManualKnowsEveryCommandAndOption)
{
    QProcess unpacking;
    unpacking.start("gzip", {"-dc", prefix + "/share/man/man1/kovrel.1.gz"});
    ASSERT_TRUE(unpacking.waitForFinished());
    const QByteArray page = unpacking.readAllStandardOutput().replace("\\-", "-");
    const QString usage = QString::fromUtf8(kovrel({"--help"}).output);
    static const QRegularExpression words("--[a-z][a-z-]+|(?<=kovrel )[a-z][a-z-]+|(?<=\\| )[a-z][A-Za-z]+");
    auto match = words.globalMatch(usage);
    EXPECT_TRUE(match.hasNext());
    while (match.hasNext()) {
        const QString word = match.next().captured();
        EXPECT_TRUE(page.contains(word.toUtf8())) << qPrintable(word);
    }
}

TEST_F(InstallationTest, ShellsCompleteWhatTheProgramOffers)
{
    const QString zsh = prefix + "/share/zsh/site-functions/_kovrel";
    const QString fish = prefix + "/share/fish/vendor_completions.d/kovrel.fish";
    const QString bash = prefix + "/share/bash-completion/completions/kovrel";
    const QString inBash = R"(PATH="$1/bin:$PATH"; . /usr/share/bash-completion/bash_completion; . "$2"
        COMP_LINE="$3 $4"; COMP_POINT=${#COMP_LINE}; COMP_WORDS=($3 "$4"); COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
        _kovrel; echo "${COMPREPLY[*]}")";
    const QString inFish = R"(set -x PATH $argv[1]/bin $PATH; source $argv[2]; complete -C "$argv[3] $argv[4]" |
        string join ' ')";

    struct Case {
        const char* before;
        const char* begun;
        const char* expected;
    };

    for (const Case& c :
         {Case{"kovrel", "pref", "preferences"}, Case{"kovrel capture", "fu", "fullScreen"},
          Case{"kovrel capture area", "--re", "--rect"}, Case{"kovrel codes", "/etc/hostn", "/etc/hostname"},
          Case{"kovrel preferences get", "jpeg", "jpegQuality"}}) {
        const auto answerOfBash = session.run("bash", {"-c", inBash, "bash", prefix, bash, c.before, c.begun});
        EXPECT_EQ(answerOfBash.output.trimmed(), c.expected) << answerOfBash.error.constData();
        const auto answerOfFish = session.run("fish", {"-c", inFish, prefix, fish, c.before, c.begun});
        EXPECT_EQ(answerOfFish.output.trimmed(), c.expected) << answerOfFish.error.constData();
    }
    expectSuccess("zsh", {"-n", zsh});
}

} // namespace Kovrel
