#include "history/search/HistoryBackfill.h"

#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/LogLines.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const QUuid first("{00000000-0000-4000-8000-000000000001}");
const QUuid second("{00000000-0000-4000-8000-000000000002}");
const QUuid third("{00000000-0000-4000-8000-000000000003}");

struct HistoryBackfillTest : testing::Test {
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    Testing::TempFolder folder;
    const Testing::LogLines log;
    HistoryTextIndex index{loop, workers};
    CaptureOCRStore store{loop, workers, folder.path(), [](QUuid) { return CaptureOCRStore::Status::recorded; },
                          [this](QImage image, QualityOfService qos, bool, std::stop_token stop) {
                              EXPECT_EQ(qos, QualityOfService::background);
                              return recognize(image, stop);
                          }};
    std::vector<QUuid> ids{first, second, third};
    std::vector<QUuid> outdated;
    QUuid unreadable;           // has no pixels
    QUuid failing;              // can't be recognised
    RecognitionFailure failure; // for what reason
    std::vector<QUuid> opened;
    std::vector<Reply<OCROutcome>> recognitions; // that are under way
    Scope scope{loop, workers};
    std::unique_ptr<HistoryBackfill> backfill = std::make_unique<HistoryBackfill>(
        loop, workers, index, store,
        HistoryBackfill::Captures{[this] { return ids; }, [](QUuid) { return base(); },
                                  [this](CaptureOCRStore::Key key) { return pixels(key.id); },
                                  [](QImage image) { return codes(image); }, [this] { return takeOutdated(); }});

    HistoryBackfillTest()
    {
        index.attach(folder.path());
        settle();
    }

    static QCoro::Task<CaptureOCRStore::Kind> base() { co_return CaptureOCRStore::Kind::base; }

    static QCoro::Task<std::optional<std::vector<QRCode>>> codes(QImage image)
    {
        co_return std::vector{QRCode{.payload = QString("code in %1 pixels").arg(image.width()), .boundingBox = {}}};
    }

    QCoro::Task<std::vector<QUuid>> takeOutdated() { co_return std::exchange(outdated, {}); }

    QCoro::Task<QImage> pixels(QUuid id)
    {
        opened.push_back(id);
        co_return id == unreadable ? QImage() : QImage(4, 4, QImage::Format_RGB32);
    }

    QCoro::Task<OCROutcome> recognize(QImage, std::stop_token stop)
    {
        OCROutcome outcome =
            co_await scope.reply<OCROutcome>([this](Reply<OCROutcome> done) { recognitions.push_back(done); });
        if (stop.stop_requested())
            outcome = std::unexpected(RecognitionFailure{"", RecognitionFailure::Reason::cancelled});
        co_return outcome;
    }

    void settle()
    {
        do
            loop.runPosted();
        while (workers.runAll() > 0);
    }

    void wait(std::chrono::milliseconds time)
    {
        loop.advance(time);
        settle();
    }

    // Lets the recogniser answer until it is asked nothing more; what it is asked are the pictures in `opened`.
    void readAll()
    {
        for (settle(); !recognitions.empty(); settle()) {
            const auto done = std::exchange(recognitions, {});
            for (const auto& reply : done)
                reply(opened.back() == failing ? OCROutcome(std::unexpected(failure)) : read(opened.back()));
        }
    }

    static OCROutcome read(QUuid id)
    {
        return OCRResult{.lines = {{.text = "text of " + id.toString().chopped(1).right(1)}}};
    }
};

} // namespace

TEST_F(HistoryBackfillTest, TextsThatAreNotKnownAreReadOneAtATimeWhenTheMachineIsIdle)
{
    index.set({}, second); // it was read, and has none
    backfill->schedule();
    wait(4s);
    backfill->schedule(); // a capture
    wait(4s);
    EXPECT_THAT(opened, IsEmpty());
    wait(1s);
    EXPECT_THAT(opened, ElementsAre(first));
    backfill->schedule(); // it goes on
    readAll();
    EXPECT_THAT(opened, ElementsAre(first, third));
    EXPECT_EQ(index.findLines(third).front().text, "text of 3");
    EXPECT_EQ(index.findLines(third).back().text, "code in 4 pixels");
    wait(1min);
    EXPECT_EQ(opened.size(), 2U);
    const QUuid late = QUuid::createUuid();
    ids.push_back(late);
    backfill->schedule();
    wait(5s);
    readAll();
    EXPECT_TRUE(index.knows(late));
}

TEST_F(HistoryBackfillTest, ACaptureStopsItInTheMiddleOfAPicture)
{
    backfill->schedule();
    wait(5s);
    backfill->suspend();
    EXPECT_EQ(recognitions.size(), 1U);
    readAll();
    wait(1min);
    EXPECT_FALSE(index.knows(first));
    EXPECT_THAT(opened, ElementsAre(first));
    backfill->schedule();
    wait(5s);
    readAll();
    EXPECT_TRUE(index.knows(first) && index.knows(second) && index.knows(third));
}

TEST_F(HistoryBackfillTest, APictureThatFailsIsNotTriedAgainAndNoTextIsKeptAsSuch)
{
    unreadable = first;
    failing = second;
    for (int round = 0; round < 2; ++round) {
        backfill->schedule();
        wait(5s);
        readAll();
        EXPECT_THAT(opened, ElementsAre(first, second, third));
    }
    EXPECT_FALSE(index.knows(first) || index.knows(second));
}

TEST_F(HistoryBackfillTest, WithoutARecogniserItWaitsForOne)
{
    failing = first;
    failure.reason = RecognitionFailure::Reason::notInstalled;
    backfill->schedule();
    wait(5s);
    readAll();
    EXPECT_THAT(opened, ElementsAre(first));
    failing = QUuid();
    backfill->schedule();
    wait(5s);
    readAll();
    EXPECT_TRUE(index.knows(first) && index.knows(third));
}

TEST_F(HistoryBackfillTest, APictureThatChangesMeanwhileIsReadAgain)
{
    ids = {first};
    backfill->schedule();
    wait(5s);
    index.remove(first);
    store.invalidate(first, {CaptureOCRStore::Kind::base});
    readAll();
    EXPECT_THAT(opened, ElementsAre(first, first));
    EXPECT_TRUE(index.knows(first));
}

TEST_F(HistoryBackfillTest, WhatIsOutdatedIsReadAgainBehindTheOthersAndOnce)
{
    index.set({{.text = "old"}}, first);
    index.set({{.text = "old"}}, second);
    outdated = {second, first};
    failing = first;
    backfill->schedule();
    wait(5s);
    EXPECT_THAT(opened, ElementsAre(third));
    recognitions.front()(read(third));
    recognitions.clear();
    settle();
    backfill->suspend(); // a capture
    readAll();
    EXPECT_EQ(index.findLines(second).front().text, "old");
    for (int round = 0; round < 2; ++round) {
        backfill->schedule();
        wait(5s);
        readAll();
        EXPECT_THAT(opened, ElementsAre(third, first, first, second));
    }
    EXPECT_EQ(index.findLines(first).front().text, "old") << "nothing better was read";
    EXPECT_EQ(index.findLines(second).front().text, "text of 2");
}

TEST_F(HistoryBackfillTest, ItsEndEndsIt)
{
    backfill->schedule();
    wait(5s);
    backfill.reset();
    readAll();
    wait(1min);
    EXPECT_THAT(opened, ElementsAre(first));
    EXPECT_FALSE(index.knows(first));
}

} // namespace Kovrel
