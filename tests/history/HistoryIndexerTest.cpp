#include "history/HistoryIndexer.h"

#include "ports/TextReader.h"
#include "tests/history/HistoryFixture.h"

namespace Kovrel {

using namespace std::chrono_literals;

namespace {

// Reads as its models can.
struct Reader : TextReader {
    void expectReading() override {}

    void read(QImage, double, std::stop_token, Reply<Reading> reply) override { reply({}); }

    void readText(QImage, QualityOfService, bool, std::stop_token, Reply<OCROutcome> reply) override
    {
        ++readings;
        reply(OCRResult{.lines = {{.text = word}}});
    }

    void modelsChanged(Reply<QDateTime> reply) override { reply(changed); }

    void readCodes(QImage, Reply<std::optional<std::vector<QRCode>>> reply) override { reply(std::vector<QRCode>()); }

    QString word = "gibberish";
    QDateTime changed = QDateTime::currentDateTime().addDays(-1);
    int readings = 0;
};

struct HistoryIndexerTest : Testing::HistoryFixture {
    // With words, as one run of the program has them.
    struct IndexedRun {
        explicit IndexedRun(HistoryIndexerTest& fixture)
            : preferences(fixture.defaults),
              ocr(
                  fixture.loop, fixture.workers, fixture.folder.path(), [this](QUuid id) { return store.status(id); },
                  [&fixture](QImage image, QualityOfService qos, bool corrected, std::stop_token stop) {
                      return fixture.recognize(image, qos, corrected, stop);
                  }),
              store({.loop = fixture.loop,
                     .workers = fixture.workers,
                     .preferences = preferences,
                     .ocr = ocr,
                     .folder = fixture.folder.path()}),
              indexer(fixture.loop, fixture.workers, fixture.ports, store, fixture.folder.path())
        {
            store.start();
            indexer.load();
            indexer.scheduleWhenIdle();
        }

        Preferences preferences;
        CaptureOCRStore ocr;
        CaptureHistoryStore store;
        HistoryIndexer indexer;
    };

    HistoryIndexerTest() { ports.textReader.offer(reader); }

    QCoro::Task<OCROutcome> recognize(QImage image, QualityOfService qos, bool corrected, std::stop_token stop)
    {
        OCROutcome outcome = std::unexpected(RecognitionFailure{});
        reader.readText(image, qos, corrected, stop, [&outcome](const OCROutcome& read) { outcome = read; });
        co_return outcome;
    }

    void beIdle()
    {
        settle();
        loop.advance(5s);
        settle();
    }

    QString textOf(int number) { return run->indexer.index().findLines(id(number)).front().text; }

    Reader reader;
    Ports ports;
    std::unique_ptr<IndexedRun> run = std::make_unique<IndexedRun>(*this);
};

} // namespace

TEST_F(HistoryIndexerTest, WhatWasReadBeforeALanguageCameIsReadAgain)
{
    run->store.record(capture(1), {}, {});
    beIdle();
    EXPECT_EQ(textOf(1), "gibberish");
    reader.word = "word";
    reader.changed = QDateTime::currentDateTime().addDays(1);
    run->store.record(capture(2), {}, {});
    beIdle();
    EXPECT_EQ(textOf(1), "word");
}

TEST_F(HistoryIndexerTest, ALanguageThatCameWhileTheProgramDidNotRunIsSeenAtTheNextStart)
{
    run->store.record(capture(1), {}, {});
    beIdle();
    for (const auto& [word, changed, readings] :
         {std::tuple("word", QDateTime::currentDateTime().addDays(1), 2), {"other", QDateTime(), 2}}) {
        reader.word = word;
        reader.changed = changed;
        run = nullptr;
        run = std::make_unique<IndexedRun>(*this);
        beIdle();
        EXPECT_EQ(textOf(1), "word");
        EXPECT_EQ(reader.readings, readings);
    }
}

} // namespace Kovrel
