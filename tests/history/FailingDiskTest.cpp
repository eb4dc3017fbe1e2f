#include "tests/history/FailingDisk.h"

#include "platform/ImageCodec.h"
#include "tests/history/HistoryFixture.h"
#include "tests/support/LogLines.h"

#include <QJsonDocument>

namespace Kovrel {

namespace {

using testing::AnyOf;
using testing::ElementsAre;
using Testing::FailingDisk;

struct FailingDiskTest : Testing::HistoryFixture {
    // Three captures, the first of them in a list.
    void begin()
    {
        kill();
        for (const QString& file : folder.files())
            QFile::remove(folder / file);
        rescued.clear();
        reported.reset();
        run = started();
        for (const int number : {1, 2, 3})
            record(number);
        settle();
        list = store().createList("List", "#2F6BFF");
        store().moveToList({id(1)}, list);
        settle();
    }

    HistoryState memory() { return {store().entries(), store().lists()}; }

    bool isWhole(const QString& file) const
    {
        if (file.endsWith(".json"))
            return !QJsonDocument::fromJson(read(file)).isNull();
        return file == ".lock" || ImageCodec::decodeFile(folder / file);
    }

    void edit(int number)
    {
        store().updateImage({.id = id(number),
                             .flattened = Testing::testPicture({50, 40}, Testing::Texture::blocks),
                             .subject = CaptureSubject{{1, 1, 5, 5}, 2}},
                            [this](const auto& done) { reported = done.has_value(); });
        settle();
    }

    QUuid list;
    std::optional<bool> reported;
    const Testing::LogLines log;
};

} // namespace

TEST_F(FailingDiskTest, AFailureAtAnyStepChangesNothingInMemoryAndIsMadeGoodLater)
{
    struct Case {
        const char* what;
        std::function<void()> work;
        std::function<void()> check;
    };

    HistoryState expected;
    const auto expectMemory = [&] { EXPECT_EQ(memory(), expected); };
    const Case cases[] = {
        {"recording",
         [&] {
             record(4)->whenDone([&](const RecordOutcome& outcome) { reported = outcome.has_value(); });
             settle();
         },
         [&] {
             EXPECT_THAT(entries(), AnyOf(ElementsAre(3, 2, 1), ElementsAre(4, 3, 2, 1)));
             EXPECT_EQ(rescued, *reported ? QList<QUuid>() : QList{id(4)});
         }},
        {"editing", [&] { edit(1); },
         [&] {
             if (*reported)
                 EXPECT_TRUE(store().entry(id(1))->subject);
             EXPECT_EQ(store().entries().size(), 3);
         }},
        {"deleting",
         [&] {
             store().remove({id(1), id(2)});
             expected = memory();
             settle();
             loop.advance(CaptureHistoryStore::undoTime);
             settle();
         },
         [&] {
             expectMemory();
             store().setTitle(id(3), "later");
             settle();
             EXPECT_EQ(filesOf(1) + filesOf(2), QStringList());
         }},
        {"deleting and taking it back",
         [&] {
             expected = memory();
             store().remove({id(1), id(2)});
             settle();
             store().undoRemoval();
             settle();
         },
         expectMemory},
        {"changing lists",
         [&] {
             store().createList("Other", "#FF453A");
             store().moveToList({id(1), id(3)}, store().lists().back().id);
             store().deleteKeepingFiled({id(3)});
             settle();
             store().renameList(list, "Renamed");
             store().moveToList({id(1)}, list);
             store().restoreToTimeline({id(3)});
             store().moveList(list, 1);
             expected = memory();
             settle();
         },
         expectMemory},
    };

    for (const Case& one : cases)
        for (const auto failure : {FailingDisk::Failure::once, FailingDisk::Failure::fromThenOn}) {
            int step = 0;
            for (bool hasFailed = true; hasFailed;) {
                SCOPED_TRACE(testing::Message() << one.what << ", step " << ++step << ", "
                                                << (failure == FailingDisk::Failure::once ? "once" : "from then on"));
                begin();
                {
                    const FailingDisk disk(step, failure);
                    one.work();
                    hasFailed = disk.hasFailed();
                }
                for (const QString& file : folder.files())
                    EXPECT_TRUE(isWhole(file)) << qPrintable(file);
                one.check();
                store().setTitle(id(3), "made good");
                settle();
                const HistoryState before = memory();
                kill();
                run = started();
                EXPECT_EQ(memory(), before);
            }
            EXPECT_GE(step, 9) << one.what;
        }
}

TEST_F(FailingDiskTest, DeletingMakesRoomOnADiskThatIsFull)
{
    begin();
    {
        const FailingDisk disk(1, FailingDisk::Failure::fromThenOn);
        store().remove({id(1), id(2)});
        settle();
        loop.advance(CaptureHistoryStore::undoTime);
        settle();
        EXPECT_EQ(filesOf(1) + filesOf(2), QStringList());
    }
    kill();
    run = started();
    EXPECT_THAT(entries(), ElementsAre(3));
}

TEST_F(FailingDiskTest, AnIndexThatCantBeReadNowIsNotTakenForADamagedOne)
{
    begin();
    restart();
    kill();
    {
        const FailingDisk disk("index.json");
        run = started();
        EXPECT_TRUE(store().isLoaded());
        EXPECT_THAT(entries(), testing::IsEmpty());
    }
    record(4);
    settle();
    EXPECT_THAT(entries(), ElementsAre(4, 3, 2, 1)) << "what was there comes back with the next write";
    EXPECT_THAT(folder.files().filter("unreadable"), testing::IsEmpty());
}

} // namespace Kovrel
