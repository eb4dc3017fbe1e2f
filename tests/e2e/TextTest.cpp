#include "tests/e2e/UserSession.h"
#include "tests/support/PaintedScreen.h"

#include <QDir>
#include <QFile>
#include <QImage>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace Kovrel {

using Testing::UserSession;

namespace {

constexpr const char* sentence = "Pack my box with five dozen liquor jugs.\nThe quick brown fox jumps over it.";

// A picture of the sentence, as other programs draw it.
QString page(UserSession& session, const QString& name, const QStringList& look, const QStringList& ending = {})
{
    const QString path = session.path(name);
    session.run("convert",
                QStringList{"-size", "700x120"} + look +
                    QStringList{"-font", "DejaVu-Sans", "-pointsize", "15", "-annotate", "+20+40", sentence} + ending +
                    QStringList{path});
    return path;
}

} // namespace

TEST(TextTest, ATextCaptureCopiesWhatTheScreenSays)
{
    const Testing::VirtualDisplay display({700, 120});
    Testing::PaintedScreen painted(display.name());
    UserSession session(&display);
    session.prepare();
    const QImage screen(page(session, "dark.png", {"xc:#202830", "-fill", "#8aa8c0"}));
    painted.setRootPicture(screen.convertToFormat(QImage::Format_RGB32));
    const auto result = session.kovrel({"capture", "ocrRegion", "--rect", "0,0,700,120", "--wait", "--json"});
    ASSERT_EQ(result.exitCode, 0) << result.error.constData();
    EXPECT_EQ(result.json()["text"].toString().toStdString(), sentence);
    EXPECT_EQ(session.run("xclip", {"-selection", "clipboard", "-o"}).output.toStdString(), sentence);
    EXPECT_TRUE(session.savedFiles().isEmpty());
}

TEST(TextTest, ATextCaptureWithoutLanguageDataSaysWhatIsMissing)
{
    const Testing::VirtualDisplay display({700, 120});
    UserSession session(&display);
    session.setVariable("TESSDATA_PREFIX", session.path("home"));
    session.prepare();
    const auto result = session.kovrel({"capture", "ocrRegion", "--rect", "0,0,700,120", "--wait"});
    EXPECT_EQ(result.exitCode, 4);
    EXPECT_TRUE(result.error.contains("tesseract-ocr-eng")) << result.error.constData();
}

TEST(TextTest, PicturesOfEveryKindAreRead)
{
    UserSession session(nullptr, false);
    const QString expected = QString(sentence) + '\n';

    struct Case {
        const char* name;
        QStringList look;
        QStringList ending = {};
    };

    const Case cases[] = {
        {"light.png", {"xc:white"}},
        {"chip.png", {"xc:white", "-fill", "#2060c0", "-draw", "rectangle 10,20 690,80", "-fill", "white"}},
        {"clear.png", {"xc:none"}},
        {"deep.png", {"xc:white"}, {"-depth", "16"}},
        {"cmyk.jpg", {"xc:white"}, {"-colorspace", "CMYK", "-quality", "95"}},
        {"left.png", {"xc:white"}, {"-rotate", "270"}},
        {"down.png", {"xc:white"}, {"-rotate", "180"}},
        {"askew.png", {"xc:white"}, {"-rotate", "20"}},
        {"wide.png", {"xc:white"}, {"-gravity", "west", "-extent", "20000x120"}},
    };
    for (const Case& c : cases) {
        const auto result = session.kovrel({"text", page(session, c.name, c.look, c.ending)});
        EXPECT_EQ(result.exitCode, 0) << c.name << ": " << result.error.constData();
        EXPECT_EQ(QString::fromUtf8(result.output), expected) << c.name;
    }
}

TEST(TextTest, ProgressIsShownOnATerminalOnly)
{
    UserSession session(nullptr, false);
    const QString file = page(session, "page.png", {"xc:white"});
    const QString command = QString("'%1' text '%2'").arg(KOVREL_PROGRAM, file);
    const QByteArray terminal = session.run("script", {"-qec", command, "/dev/null"}).output;
    EXPECT_TRUE(terminal.contains("Reading the text: 50 %")) << terminal.constData();
    EXPECT_TRUE(terminal.contains("liquor jugs"));
    EXPECT_TRUE(session.kovrel({"text", file}).error.isEmpty());
}

TEST(TextTest, WhatCannotBeReadEndsInOneLine)
{
    UserSession session(nullptr, false);
    const QString good = page(session, "good.png", {"xc:white"});
    session.run("convert", {"-size", "1x1", "xc:black", session.path("one.png")});
    QImage empty(20000, 50, QImage::Format_RGB32);
    empty.fill(Qt::gray);
    empty.save(session.path("empty.png"));
    session.run("truncate", {"-s", "200", page(session, "cut.png", {"xc:white"})});
    ::mkfifo(session.path("pipe").toUtf8(), 0600);
    session.run("truncate", {"-s", "0", session.path("void.png")});
    session.run("cp", {"/etc/passwd", session.path("words.png")});

    struct Case {
        const char* file;
        int exitCode;
    };

    for (const Case& c : {Case{"one.png", 1}, Case{"empty.png", 1}, Case{"cut.png", 4}, Case{"pipe", 4},
                          Case{"home", 4}, Case{"missing.png", 4}, Case{"void.png", 4}, Case{"words.png", 4}}) {
        const auto result = session.kovrel({"text", session.path(c.file)});
        EXPECT_EQ(result.exitCode, c.exitCode) << c.file;
        EXPECT_EQ(result.error.count('\n'), 1) << c.file << ": " << result.error.constData();
    }
    session.setVariable("TESSDATA_PREFIX", session.path("home"));
    const auto noData = session.kovrel({"text", good});
    EXPECT_EQ(noData.exitCode, 4);
    EXPECT_TRUE(noData.error.contains("tesseract-ocr-eng")) << noData.error.constData();
}

} // namespace Kovrel
