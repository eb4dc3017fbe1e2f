#include "history/search/HistoryTextIndex.h"

#include "platform/files/AtomicFile.h"
#include "recognition/CaptureOCRStore.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/LogLines.h"
#include "tests/support/TempFolder.h"

#include <QFile>
#include <QFileInfo>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

using namespace std::chrono_literals;
using HistorySearch::parse;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const QUuid first("{00000000-0000-4000-8000-000000000001}");
const QUuid second("{00000000-0000-4000-8000-000000000002}");
const QUuid third("{00000000-0000-4000-8000-000000000003}");

std::vector<OCRLine> lines(const QString& text, Rect box = {0.1, 0.2, 0.3, 0.04})
{
    return {{.text = text, .confidence = 1, .boundingBox = box}};
}

struct HistoryTextIndexTest : testing::Test {
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    Testing::TempFolder folder;
    const Testing::LogLines log;
    std::unique_ptr<HistoryTextIndex> index = std::make_unique<HistoryTextIndex>(loop, workers);

    void settle()
    {
        do
            loop.runPosted();
        while (workers.runAll() > 0);
    }

    void attach()
    {
        index->attach(folder.path());
        settle();
    }

    void restart()
    {
        finish();
        index = std::make_unique<HistoryTextIndex>(loop, workers);
        attach();
    }

    void finish()
    {
        index->writeLast(folder.path());
        settle();
    }

    void wait(std::chrono::milliseconds time)
    {
        loop.advance(time);
        settle();
    }

    QString file() const { return HistoryTextFile::path(folder.path()); }

    QByteArray content() const
    {
        QFile stored(file());
        return stored.open(QIODevice::ReadOnly) ? stored.readAll() : QByteArray();
    }

    void write(const QString& path, const QByteArray& bytes, int secondsOld = 0)
    {
        ASSERT_TRUE(AtomicFile::write(path, bytes, AtomicFile::Access::onlyOwner));
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        file.setFileTime(QDateTime::currentDateTime().addSecs(-secondsOld), QFileDevice::FileModificationTime);
    }

    QString sidecar(QUuid id, bool isEdited = false) const
    {
        return CaptureOCRStore::sidecarURLs(id, folder.path())[isEdited ? 1 : 0];
    }

    // As the store of recognised texts leaves it, an hour ago.
    void writeSidecar(QUuid id, const std::vector<OCRLine>& text, bool isEdited = false, int secondsOld = 3600)
    {
        OCRFile made;
        made.text = OCRFile::TextPart{{100, 100}, true, {.lines = text}};
        made.qr = OCRFile::QRPart{{{"code of " + QString::number(text.size()), {}}}, true};
        write(sidecar(id, isEdited), made.encoded(), secondsOld);
    }

    std::vector<std::string> texts(QUuid id) const
    {
        std::vector<std::string> all;
        for (const OCRLine& line : index->findLines(id))
            all.push_back(line.text.toStdString());
        return all;
    }
};

} // namespace

TEST_F(HistoryTextIndexTest, WhatWasReadIsThereAfterARestart)
{
    attach();
    for (const QUuid& id : {first, second})
        writeSidecar(id, {});
    index->set(lines("Grüße \"an\" alle\\"), first);
    index->set({}, second);
    restart();
    EXPECT_EQ(index->findLines(first), lines("Grüße \"an\" alle\\"));
    EXPECT_TRUE(index->knows(second)); // it was looked at, and has no text
    EXPECT_FALSE(index->knows(third));
    EXPECT_FALSE(QFileInfo(file()).permissions() & (QFile::ReadGroup | QFile::ReadOther));
}

TEST_F(HistoryTextIndexTest, TheFileHasItsForm)
{
    attach();
    index->set(lines("One", {0.1, 0.25, 0.5, 0.00001}), first);
    finish();
    EXPECT_EQ(content(), "{\"v\":1,\"captures\":{\n\"00000000-0000-4000-8000-000000000001\":"
                         "[{\"t\":\"One\",\"x\":0.1,\"y\":0.25,\"w\":0.5,\"h\":1e-05}]\n}}\n");
}

TEST_F(HistoryTextIndexTest, ChangesInARowAreWrittenOnceAndLargeOnesLater)
{
    attach();
    index->set(lines("one"), first);
    loop.advance(399ms);
    EXPECT_EQ(workers.pending(Lane::searchIndex), 0U);
    index->set(lines("two"), second);
    loop.advance(1ms);
    EXPECT_EQ(workers.pending(Lane::searchIndex), 1U);
    settle();
    index->set(lines(QString(1'000'000, 'x')), third);
    wait(1s);
    EXPECT_FALSE(content().contains("xxx"));
    wait(1s);
    EXPECT_TRUE(content().contains("xxx"));
    index->remove(third); // what was deleted does not wait
    wait(400ms);
    EXPECT_FALSE(content().contains("xxx"));
}

TEST_F(HistoryTextIndexTest, ABatchIsWrittenAtItsEnd)
{
    attach();
    {
        const HistoryTextIndex::Batch batch(*index);
        {
            const HistoryTextIndex::Batch inner(*index);
            index->set(lines("one"), first);
        }
        wait(10s);
        EXPECT_EQ(content(), QByteArray());
    }
    wait(400ms);
    EXPECT_TRUE(content().contains("one"));
}

TEST_F(HistoryTextIndexTest, ADiskThatIsFullCostsNothing)
{
    attach();
    index->set(lines("one"), first);
    finish();
    const QByteArray before = content();
    index->set(lines("two " + QString(500, 'x')), second);
    {
        const Testing::FileSizeLimit full(10);
        wait(1s);
    }
    EXPECT_EQ(content(), before);
    finish();
    EXPECT_TRUE(content().contains("two"));
}

TEST_F(HistoryTextIndexTest, DamageCostsOnlyWhatSidecarsLack)
{
    const QByteArray good =
        "\"00000000-0000-4000-8000-000000000001\":[{\"t\":\"kept\",\"x\":0,\"y\":0,\"w\":1,\"h\":1}]";
    const QByteArray other =
        "\"00000000-0000-4000-8000-000000000002\":[{\"t\":\"also\",\"x\":0,\"y\":0,\"w\":1,\"h\":1}]";
    const QByteArray begin = "{\"v\":1,\"captures\":{\n";

    const struct {
        QByteArray content;
        const char* first;
        const char* second;
    } cases[] = {
        {begin + good + ",\n" + other + "\n}}\n", "kept", "also"},
        {begin + good + ",\n" + other.chopped(1) + "\n}}\n", "kept", "sidecar"},
        {begin + good + ",\n" + other.chopped(30), "kept", "sidecar"},
        {begin + good.chopped(50) + ",\n" + other + "\n}}\n", "sidecar", "also"},
        {begin + QByteArray(good).replace("\"x\":0", "\"x\":\"\"") + ",\n" + other, "sidecar", "also"},
        {begin + QByteArray(good).replace("\"t\":\"kept\",", "") + ",\n" + other, "sidecar", "also"},
        {begin + "\"not-an-id\":[],\n" + other, "sidecar", "also"},
        {QByteArray(begin + good + ",\n" + other).replace("\"v\":1", "\"v\":2"), "sidecar", "sidecar"},
        {"[]", "sidecar", "sidecar"},
        {"", "sidecar", "sidecar"},
        {begin, "sidecar", "sidecar"},
        {begin + QByteArray(100, '\0') + "\n\n\n", "sidecar", "sidecar"},
    };

    for (const auto& one : cases) {
        for (const QUuid& id : {first, second})
            writeSidecar(id, lines("sidecar"));
        write(file(), one.content);
        index = std::make_unique<HistoryTextIndex>(loop, workers);
        attach();
        EXPECT_EQ(texts(first).front(), one.first) << one.content.toStdString();
        EXPECT_EQ(texts(second).front(), one.second) << one.content.toStdString();
    }
}

TEST_F(HistoryTextIndexTest, OnlyTheTextOfThePictureAsItIsNowIsBelieved)
{
    attach();
    for (const QUuid& id : {first, second, third})
        writeSidecar(id, lines("read"));
    index->set(lines("stored"), first);
    index->set(lines("stored"), second);
    index->set(lines("stored"), third);
    finish();
    write(folder / "00000000-0000-4000-8000-000000000001_edited.png", "a picture");
    writeSidecar(second, lines("younger"), false, -3600);
    restart();
    EXPECT_FALSE(index->knows(first)); // it was edited, and not read since
    EXPECT_THAT(texts(second), ElementsAre("younger", "code of 1"));
    EXPECT_THAT(texts(third), ElementsAre("stored"));
    writeSidecar(first, lines("edited"), true);
    restart();
    EXPECT_THAT(texts(first), ElementsAre("edited", "code of 1"));
}

TEST_F(HistoryTextIndexTest, WhatHappensBeforeItIsLoadedStays)
{
    for (const QUuid& id : {first, second, third})
        writeSidecar(id, lines("before"));
    index->attach(folder.path());
    index->set(lines("now"), first);
    index->remove(second);
    EXPECT_FALSE(index->isLoaded());
    settle();
    finish();
    EXPECT_THAT(texts(first), ElementsAre("now"));
    EXPECT_FALSE(index->knows(second));
    EXPECT_THAT(texts(third), ElementsAre("before", "code of 1"));
    EXPECT_FALSE(content().contains(second.toByteArray(QUuid::WithoutBraces)));
    EXPECT_TRUE(content().contains("now"));
}

TEST_F(HistoryTextIndexTest, DeletedWordsAreGone)
{
    for (const QUuid& id : {first, second, third})
        writeSidecar(id, lines("unique" + QString::number(id.data1) + id.toString().right(2).left(1)));
    index->attach(folder.path());
    index->retain({first, second}); // also those that are still being read
    settle();
    EXPECT_FALSE(index->knows(third));
    index->remove(first);
    EXPECT_THAT(index->findLines(first), IsEmpty());
    finish();
    EXPECT_TRUE(content().contains("unique02"));
    EXPECT_FALSE(content().contains("unique01") || content().contains("unique03"));
    index->retain({});
    finish();
    EXPECT_FALSE(content().contains("unique"));
}

TEST_F(HistoryTextIndexTest, TextOfAPictureThatHasChangedMeanwhileIsDropped)
{
    attach();
    const int token = index->token(first);
    index->remove(first); // it was edited
    index->set(lines("old"), first, token);
    EXPECT_FALSE(index->knows(first));
    index->set(lines("new"), first, index->token(first));
    EXPECT_THAT(texts(first), ElementsAre("new"));
}

TEST_F(HistoryTextIndexTest, HitsAreWhereTheTermsStand)
{
    attach();
    index->set(
        {{.text = "Über uns", .boundingBox = {0, 0.5, 0.8, 0.1}}, {.text = "uns", .boundingBox = {0, 0, 0.3, 0.1}}},
        first);
    EXPECT_THAT(index->hits(first, parse("UBER")), ElementsAre(Rect{0, 0.5, 0.4, 0.1}));
    EXPECT_EQ(index->hits(first, parse("uns uber")).size(), 3U);
    EXPECT_THAT(index->hits(first, parse("nowhere")), IsEmpty());
    EXPECT_THAT(index->hits(second, parse("uns")), IsEmpty());
    index->set(lines(QString("x ").repeated(500)), first); // what was found before no longer counts
    EXPECT_THAT(index->hits(first, parse("uber")), IsEmpty());
    EXPECT_EQ(index->hits(first, parse("x")).size(), 200U);
}

TEST_F(HistoryTextIndexTest, EachChangeIsTold)
{
    int told = 0;
    const Subscription observing = index->onChange([&told] { ++told; });
    attach();
    const int loaded = index->generation();
    index->set(lines("one"), first);
    index->remove(second); // nothing was known
    index->retain({first});
    index->remove(first);
    EXPECT_EQ(index->generation(), loaded + 2);
    EXPECT_EQ(told, index->generation());
}

} // namespace Kovrel
