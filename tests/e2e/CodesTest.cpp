#include "tests/e2e/UserSession.h"

#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace Kovrel {

namespace {

using Testing::UserSession;

void makeCode(UserSession& session, const QString& file, const QString& payload)
{
    const auto made = session.run("qrencode", {"-s", "4", "-o", session.path("home/" + file), payload});
    ASSERT_EQ(made.exitCode, 0) << made.error.constData();
}

} // namespace

TEST(CodesCommand, WorksWithoutADisplayAndStartsNothing)
{
    UserSession session(nullptr);
    makeCode(session, "zoë.png", "Zoë\nsecond line");
    const auto plain = session.kovrel({"codes", "zoë.png"});
    EXPECT_EQ(plain.exitCode, 0) << plain.error.constData();
    EXPECT_EQ(plain.output, "Zoë\nsecond line\n");

    const auto json = session.kovrel({"codes", "--json", session.path("home/zoë.png")});
    const QJsonArray codes = QJsonDocument::fromJson(json.output).array();
    ASSERT_EQ(codes.size(), 1);
    EXPECT_EQ(codes[0].toObject()["payload"].toString(), "Zoë\nsecond line");
    const QJsonArray box = codes[0].toObject()["box"].toArray();
    ASSERT_EQ(box.size(), 4);
    for (const auto& [index, expected] : {std::pair(0, 4.0 / 29), {1, 4.0 / 29}, {2, 21.0 / 29}, {3, 21.0 / 29}})
        EXPECT_NEAR(box[index].toDouble(), expected, 0.02) << "21 modules inside a margin of 4";
    EXPECT_EQ(session.instancePid(), 0);
}

TEST(CodesCommand, SaysWhyThereIsNothing)
{
    UserSession session(nullptr);
    QFile text(session.path("home/text.png"));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly) && text.write("no picture") > 0);
    text.close();
    QImage blank(300, 200, QImage::Format_RGB32);
    blank.fill(Qt::white);
    ASSERT_TRUE(blank.save(session.path("home/blank.png")));
    ASSERT_EQ(::mkfifo(QFile::encodeName(session.path("home/pipe")), 0600), 0);

    struct Case {
        QStringList arguments;
        int exitCode;
    };

    for (const Case& c : {Case{{"blank.png"}, 1}, Case{{"text.png"}, 4}, Case{{"missing.png"}, 4}, Case{{"."}, 4},
                          Case{{"pipe"}, 4}, Case{{}, 2}, Case{{"blank.png", "blank.png"}, 2}}) {
        const auto result = session.kovrel(QStringList{"codes"} + c.arguments);
        EXPECT_EQ(result.exitCode, c.exitCode) << qPrintable(c.arguments.join(' '));
        EXPECT_EQ(result.output, "") << qPrintable(c.arguments.join(' '));
        EXPECT_TRUE(result.error.startsWith("kovrel: ")) << result.error.constData();
    }
    const auto json = session.kovrel({"codes", "blank.png", "--json"});
    EXPECT_EQ(std::pair(json.exitCode, json.output), std::pair(1, QByteArray("[]\n")));
}

TEST(CodesCommand, UsesTheRunningProgramWhichLoadsTheEnginesOnlyThen)
{
    Testing::VirtualDisplay display(QSize(320, 200));
    UserSession session(&display);
    session.prepare();
    session.kovrel({"capture", "fullScreen"});
    const auto hasEngines = [&session] {
        QFile maps(QString("/proc/%1/maps").arg(session.instancePid()));
        return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("libZXing");
    };
    EXPECT_FALSE(hasEngines());
    makeCode(session, "code.png", "in the program");
    EXPECT_EQ(session.kovrel({"codes", "code.png"}).output, "in the program\n");
    EXPECT_TRUE(hasEngines());
}

} // namespace Kovrel
