#include "platform/plugins/PluginTextRecogniser.h"

#include "tests/support/TempFolder.h"

#include <QFile>
#include <QProcess>
#include <QScopeGuard>
#include <QTransform>

#include <gtest/gtest.h>

#include <atomic>
#include <mutex>
#include <set>
#include <thread>

namespace Kovrel {

namespace {

QImage pageOf(const QStringList& lines, const QString& font = "DejaVu-Sans", int pixelSize = 16)
{
    QProcess convert;
    convert.start("convert", {"-size", QString("500x%1").arg(lines.size() * 2 * pixelSize + 40), "xc:white", "-font",
                              font, "-pointsize", QString::number(pixelSize), "-interline-spacing",
                              QString::number(pixelSize / 2), "-annotate", "+20+40", lines.join('\n'), "png:-"});
    EXPECT_TRUE(convert.waitForFinished()) << "convert is needed";
    return QImage::fromData(convert.readAllStandardOutput());
}

QImage pageOfLines(int count)
{
    QStringList lines;
    for (int line = 1; line <= count; ++line)
        lines << QString("Line number %1 of a page").arg(line);
    return pageOf(lines);
}

QStringList textsIn(const QImage& picture, const QStringList& languages = {"en"})
{
    PluginTextRecogniser recogniser;
    const auto seen = recogniser.recognise(picture, {.languages = languages});
    QStringList texts;
    for (const auto& observation : seen.value_or(std::vector<TextRecogniser::Observation>()))
        texts << observation.candidates.front().text;
    return texts;
}

} // namespace

TEST(Tesseract, LinesOfMarksAndDigitsAreRead)
{
    for (const QStringList& lines :
         {QStringList{"\"react\": \"16.8.4\","}, QStringList{"\"1.1.0\""},
          QStringList{"\"name\": \"1.1.0\",", "\"cat\": \"2.14.3\",", "\"fox\": \"0.8.12\",", "\"dog\": \"7.0.5\","}})
        EXPECT_EQ(textsIn(pageOf(lines, "DejaVu-Sans-Mono", 24)).join("\n").toStdString(),
                  lines.join("\n").toStdString());
}

TEST(Tesseract, SingleLettersAreReadOnce)
{
    for (const QString letter : {"Z", "P", "g"})
        EXPECT_EQ(textsIn(pageOf({letter}, "DejaVu-Sans", 24)).join('|').toStdString(), letter.toStdString());
}

TEST(Tesseract, EveryLineIsReadAndTold)
{
    PluginTextRecogniser recogniser;
    std::atomic<int> told = 0;
    const auto seen = recogniser.recognise(pageOfLines(20), {.languages = {"en"}, .progress = [&](double) { ++told; }});
    ASSERT_TRUE(seen) << qPrintable(seen.error().message);
    ASSERT_EQ(seen->size(), 20u);
    EXPECT_EQ(told, 20);
    EXPECT_EQ((*seen)[16].candidates.front().text, "Line number 17 of a page");
    EXPECT_EQ((*seen)[16].candidates.front().characterBoxes.size(), 24u);
}

TEST(Tesseract, APageOnItsHeadIsReadWithTheGapsInItsLines)
{
    const QImage page = pageOf({"Some      considerably longer ones", "more      words upon this page"});
    PluginTextRecogniser recogniser;
    const auto seen = recogniser.recognise(page.transformed(QTransform().rotate(180)), {.languages = {"en"}});
    ASSERT_TRUE(seen);
    QStringList texts;
    for (const auto& observation : *seen)
        texts << observation.candidates.front().text;
    EXPECT_EQ(texts, (QStringList{"Some considerably longer ones", "more words upon this page"}));
    EXPECT_GT(seen->front().bottomLeft.x, seen->front().bottomRight.x);
}

TEST(Tesseract, WhatNobodyWaitsForIsReadOnOneThread)
{
    PluginTextRecogniser recogniser;
    const QImage page = pageOfLines(12);
    for (const auto& [mayHurry, mostThreads] : {std::pair(true, 2u), {false, 1u}}) {
        std::mutex lock;
        std::set<std::thread::id> threads;
        const auto note = [&](double) {
            const std::scoped_lock locked(lock);
            threads.insert(std::this_thread::get_id());
        };
        EXPECT_TRUE(recogniser.recognise(page, {.languages = {"en"}, .mayHurry = mayHurry, .progress = note}));
        EXPECT_EQ(threads.size(), mostThreads);
    }
}

TEST(Tesseract, StopsAfterOneMoreLine)
{
    PluginTextRecogniser recogniser;
    std::stop_source stop;
    std::atomic<int> told = 0;
    const auto seen =
        recogniser.recognise(pageOfLines(60), {.languages = {"en"}, .stop = stop.get_token(), .progress = [&](double) {
                                                   ++told;
                                                   stop.request_stop();
                                               }});
    ASSERT_FALSE(seen);
    EXPECT_EQ(seen.error().reason, RecognitionFailure::Reason::cancelled);
    EXPECT_LE(told, 4) << "each of the two threads may be in the middle of a line, and begin one before it hears";
}

TEST(Tesseract, ReadsAgainAfterItsMemoryWasReleased)
{
    PluginTextRecogniser recogniser;
    recogniser.releaseMemory();
    for (int round = 0; round < 2; ++round) {
        const auto seen = recogniser.recognise(pageOfLines(2), {.languages = {"en"}});
        ASSERT_TRUE(seen);
        EXPECT_EQ(seen->size(), 2u);
        recogniser.releaseMemory();
    }
}

TEST(Tesseract, OnlyModelsThatAreReadWithMakeItNew)
{
    PluginTextRecogniser recogniser;
    const Testing::TempFolder models;
    const auto restore = qScopeGuard([] { qunsetenv("TESSDATA_PREFIX"); });
    qputenv("TESSDATA_PREFIX", QFile::encodeName(models.path()));
    ASSERT_TRUE(QFile::link("/bin/sh", models / "eng.traineddata")); // as old as the system
    const QDateTime start = QDateTime::currentDateTime().addSecs(-1);
    QFile late(models / "deu.traineddata");
    ASSERT_TRUE(late.open(QFile::WriteOnly));
    ASSERT_TRUE(late.setFileTime(start.addYears(-1), QFileDevice::FileModificationTime)); // as packages have it
    EXPECT_LT(recogniser.modelsChanged({"en"}), start);
    EXPECT_GE(recogniser.modelsChanged({"de"}), start);
}

} // namespace Kovrel
