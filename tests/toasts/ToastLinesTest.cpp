#include "toasts/ToastLines.h"

#include <QFontMetricsF>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

// Room for about forty characters of a line.
struct ToastLinesTest : testing::Test {
    QFont font;
    double width = QFontMetricsF(font).averageCharWidth() * 40;

    void expectToFit(const QStringList& lines) const
    {
        EXPECT_LE(lines.size(), 2);
        for (const QString& line : lines)
            EXPECT_LE(QFontMetricsF(font).horizontalAdvance(line), width) << line.toStdString();
    }
};

} // namespace

TEST_F(ToastLinesTest, AShortTextIsOneLineAndNoneIsNoLine)
{
    EXPECT_TRUE(ToastLines::of({}, font, width, 2).isEmpty());
    EXPECT_EQ(ToastLines::of("Colour copied", font, width, 2), QStringList("Colour copied"));
}

TEST_F(ToastLinesTest, PathsGiveWayToTheReason)
{
    const QString file = "Screenshot 2026-03-05 at 09.07.03.png";
    const QStringList lines = ToastLines::of("/media/somebody/backup-stick/pictures/screenshots/of-the-year: "
                                             "No space left on device; kept as /home/somebody/Documents/Kovrel/" +
                                                 file,
                                             font, width, 2);
    expectToFit(lines);
    EXPECT_TRUE(lines.join(' ').contains("No space left on device")) << lines.join('|').toStdString();
    EXPECT_TRUE(lines.join(' ').contains("kept as /")) << lines.join('|').toStdString();
    EXPECT_TRUE(lines.join(' ').startsWith("/med")) << lines.join('|').toStdString();
}

TEST_F(ToastLinesTest, APathThatHasRoomInTwoLinesIsWhole)
{
    const QString text = "/media/stick/pictures/screenshots: No space left on device";
    const QStringList lines = ToastLines::of(text, font, width, 2);
    expectToFit(lines);
    EXPECT_EQ(lines.join(' ').simplified(), text);
}

TEST_F(ToastLinesTest, InOneLineThePathIsShorterStill)
{
    const QStringList lines =
        ToastLines::of("/media/stick/pictures/screenshots/of-the-year: stick is full", font, width, 1);
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(lines.first().endsWith("stick is full")) << lines.first().toStdString();
}

TEST_F(ToastLinesTest, WhatIsStillTooLongEndsInAnEllipsis)
{
    const QStringList lines = ToastLines::of(QString("every word counts ").repeated(20), font, width, 2);
    expectToFit(lines);
    EXPECT_TRUE(lines.last().endsWith(QChar(0x2026)));
}

} // namespace Kovrel
