#include "tests/e2e/UserSession.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace Kovrel {

using Testing::UserSession;

TEST(Feedback, AFileSaysWhatIsKnownAndNothingOfTheUser)
{
    Testing::VirtualDisplay display({1280, 800});
    UserSession session(&display);
    session.prepare(
        {"jpegQuality=0.35", "fileNameTemplate=secretplan", "saveLocationBookmark=" + session.path("gone")});
    session.kovrel({"kovrel://elsewhere?token=0815"});
    session.kovrel({"kovrel://auth-callback?state=4711&token=0815"});
    const QString file = session.path("home/report.txt");
    const auto result = session.kovrel({"feedback", "--output", "report.txt"});
    EXPECT_EQ(result.exitCode, 0) << result.error.constData();
    EXPECT_EQ(QString::fromUtf8(result.output).trimmed(), file);
    EXPECT_EQ(QFileInfo(file).permissions() & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());

    QFile written(file);
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(written.readAll());
    for (const char* known : {"Kovrel 0.", "x11 session", "1280x800 at 0,0, scale 1, primary", "Qt 6.", "libxcb.so.1.",
                              "jpegQuality = 0.35", "fileNameTemplate is set", "saveLocationBookmark is set",
                              "com.kovrel.app: Unrecognized deep-link host: elsewhere", "Refused a sign-in answer"})
        EXPECT_TRUE(text.contains(known)) << known << '\n' << qPrintable(text);
    const QString user = qEnvironmentVariable("USER", "root");
    for (const QString& secret : {session.path("home"), QString("secretplan"), QString("0815"), QString("4711")})
        EXPECT_FALSE(text.contains(secret)) << qPrintable(secret) << '\n' << qPrintable(text);
    EXPECT_FALSE(text.contains(QRegularExpression("\\b" + user + "\\b"))) << qPrintable(text);

    const auto refused = session.kovrel({"feedback", "--output", "/nowhere/at/all.txt"});
    EXPECT_EQ(refused.exitCode, 4);
    EXPECT_TRUE(refused.error.contains("/nowhere/at")) << refused.error.constData();
}

TEST(Feedback, WhatStandsInTheWindowGoesToTheMailProgram)
{
    Testing::VirtualDisplay display({1280, 800});
    display.run("openbox", {"--sm-disable"}, "WM_S0");
    UserSession session(&display);
    QFile mailer(session.path("home/xdg-email"));
    ASSERT_TRUE(mailer.open(QIODevice::WriteOnly));
    mailer.write("#!/bin/sh\ncp -p \"$2\" \"" + session.path("home/mailed").toUtf8() + "\"\n");
    mailer.close();
    mailer.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    session.setVariable("PATH", session.path("home") + ':' + qEnvironmentVariable("PATH"));
    session.prepare();
    session.kovrel({"capture", "area", "--rect", "0,0,9,9", "--wait"}); // it runs, and knows of the mail program
    EXPECT_EQ(session.kovrel({"feedback"}).exitCode, 0);
    session.run("xdotool",
                {"search", "--sync", "--onlyvisible", "--name", "Kovrel Feedback", "windowactivate", "--sync"});
    session.run("xdotool", {"type", "it flickers"});
    session.run("xdotool", {"key", "Tab", "Tab", "space"});
    QFile mailed(session.path("home/mailed"));
    ASSERT_TRUE(UserSession::eventually([&] { return mailed.size() > 0; }));
    EXPECT_FALSE(mailed.permissions() & QFile::ReadOther);
    ASSERT_TRUE(mailed.open(QIODevice::ReadOnly));
    EXPECT_TRUE(mailed.readAll().startsWith("it flickers\n\nKovrel 0."));
}

} // namespace Kovrel
