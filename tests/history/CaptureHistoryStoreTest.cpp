#include "tests/history/HistoryFixture.h"

#include "history/files/HistoryJson.h"
#include "platform/ImageCodec.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/LogLines.h"

#include <QFileInfo>

#include <sys/stat.h>
#include <utime.h>

namespace Kovrel {

using testing::ElementsAre;

namespace {

struct CaptureHistoryStoreTest : Testing::HistoryFixture {
    CaptureHistoryStoreTest() { run = started(); }

    // As the index on the disk has them.
    std::vector<int> onDisk() const
    {
        const auto reading = HistoryJson::entries(read("index.json"));
        return reading ? numbers(reading->records) : std::vector<int>();
    }

    void age(const QString& file, int seconds) const
    {
        const auto time = QDateTime::currentSecsSinceEpoch() - seconds;
        const utimbuf times{time, time};
        ::utime(QFile::encodeName(folder / file), &times);
    }

    QUuid newList() { return store().createList(store().defaultName(), store().nextColor()); }

    QSet<QUuid> ids(std::initializer_list<int> numbers) const
    {
        QSet<QUuid> all;
        for (const int number : numbers)
            all.insert(id(number));
        return all;
    }

    void edit(int number)
    {
        store().updateImage({.id = id(number),
                             .flattened = Testing::testPicture({50, 40}, Testing::Texture::blocks, 99),
                             .subject = subject});
    }

    int permissions(const QString& file) const
    {
        struct stat status{};
        ::stat(QFile::encodeName(folder / file), &status);
        return int(status.st_mode & 0777U);
    }

    const CaptureSubject subject{{1, 1, 5, 5}, 2}; // that edits give
    const Testing::LogLines log;
};

} // namespace

// --- Recording

TEST_F(CaptureHistoryStoreTest, ACaptureHasItsFilesAndComesBackAfterARestart)
{
    record(1);
    settle();
    EXPECT_THAT(filesOf(1), ElementsAre(name(1) + ".png", name(1) + "_thumb.jpg"));
    const HistoryEntry before = store().entries().front();
    EXPECT_EQ(before.pixelWidth, 40);
    EXPECT_EQ(before.sourceBundleID, "org.example.Editor");
    for (const QString& file : QStringList{name(1) + ".png", name(1) + "_thumb.jpg", "index.json"})
        EXPECT_EQ(permissions(file), 0600) << qPrintable(file);
    EXPECT_EQ(permissions("."), 0700);
    kill();
    run = started();
    EXPECT_EQ(store().entries(), QList{before});
}

TEST_F(CaptureHistoryStoreTest, ARecordingIsDoneOnceTheIndexHasIt)
{
    std::vector<int> reported;
    record(1)->whenDone([&](const RecordOutcome& outcome) {
        EXPECT_EQ(outcome, folder / (name(1) + ".png"));
        reported = onDisk();
    });
    settle();
    EXPECT_THAT(reported, ElementsAre(1));
}

TEST_F(CaptureHistoryStoreTest, ACaptureIsRecordedOnce)
{
    const auto first = record(1);
    EXPECT_EQ(record(1), first);
    settle();
    EXPECT_TRUE(record(1)->isDone());
    settle();
    EXPECT_THAT(entries(), ElementsAre(1));
}

TEST_F(CaptureHistoryStoreTest, NewestIsFirstAndOfOneDateTheLatest)
{
    for (const int number : {2, 5, 3}) {
        record(number);
        settle();
    }
    CaptureResult sameDate = capture(3);
    sameDate.id = id(4);
    store().record(sameDate, {}, {});
    settle();
    EXPECT_THAT(entries(), ElementsAre(5, 4, 3, 2));
    EXPECT_EQ(onDisk(), entries());
}

TEST_F(CaptureHistoryStoreTest, ChangesOfABurstMakeOneWrite)
{
    recordUpTo(1);
    for (const QString title : {"a", "b", "c"})
        store().setTitle(id(1), title);
    loop.runPosted();
    EXPECT_EQ(workers.pending(Lane::history), 1u);
    for (const QString title : {"d", "e"})
        store().setTitle(id(1), title);
    loop.runPosted();
    EXPECT_EQ(workers.pending(Lane::history), 1u) << "they wait for the write that runs";
    settle();
    EXPECT_TRUE(read("index.json").contains("\"title\":\"e\""));
}

TEST_F(CaptureHistoryStoreTest, RecordingWaitsForASaveAndForACaptureButNotForEver)
{
    const auto save = std::make_shared<CaptureSave>();
    record(1, save);
    settle();
    EXPECT_TRUE(folder.files().filter(".png").isEmpty());
    save->finish("/saved.png");
    settle();
    EXPECT_EQ(store().entry(id(1))->savedPath, "/saved.png");

    const auto slow = std::make_shared<CaptureSave>();
    record(2, slow);
    store().suspendIndexing();
    loop.advance(std::chrono::seconds(6));
    settle();
    ASSERT_TRUE(store().entry(id(2)));
    slow->finish("/late.png");
    settle();
    EXPECT_EQ(store().entry(id(2))->savedPath, "/late.png");

    const auto last = std::make_shared<CaptureSave>();
    record(3, last);
    store().suspendIndexing();
    last->finish("/last.png");
    settle();
    EXPECT_FALSE(store().entry(id(3)));
    store().scheduleIdleIndex();
    loop.advance(std::chrono::milliseconds(150));
    settle();
    EXPECT_TRUE(store().entry(id(3)));
}

TEST_F(CaptureHistoryStoreTest, ACaptureThatCantBeRecordedIsRescuedUnlessSomethingHoldsIt)
{
    const auto saved = std::make_shared<CaptureSave>();
    saved->finish("/saved.png");
    const auto failed = std::make_shared<CaptureSave>();
    failed->finish(std::unexpected(SaveProblem{"no"}));
    std::vector<bool> outcomes;
    {
        const Testing::FileSizeLimit full(10);
        for (const auto& [number, save] : {std::pair(1, saved), {2, failed}, {3, nullptr}})
            record(number, save)->whenDone([&](const RecordOutcome& outcome) {
                outcomes.push_back(outcome.has_value());
            });
        settle();
    }
    EXPECT_THAT(outcomes, ElementsAre(false, false, false));
    EXPECT_THAT(rescued, ElementsAre(id(2), id(3)));
    EXPECT_TRUE(entries().empty());
}

TEST_F(CaptureHistoryStoreTest, WhatTheDiskDoesNotTakeIsWrittenWithTheNextChange)
{
    recordUpTo(2);
    {
        const Testing::FileSizeLimit full(10);
        store().setTitle(id(1), "kept in memory");
        store().remove(ids({2}));
        store().discard(id(2));
        settle();
        loop.advance(CaptureHistoryStore::undoTime);
        settle();
    }
    EXPECT_THAT(onDisk(), ElementsAre(2, 1));
    EXPECT_TRUE(filesOf(2).isEmpty()) << "what is deleted makes room";
    EXPECT_EQ(store().entry(id(1))->title, "kept in memory");
    newList();
    settle();
    EXPECT_THAT(onDisk(), ElementsAre(1));
    EXPECT_TRUE(read("index.json").contains("kept in memory"));
}

TEST_F(CaptureHistoryStoreTest, TheEndOfTheProgramKeepsWhatIsUnderWay)
{
    record(1, std::make_shared<CaptureSave>());
    record(2);
    loop.runPosted();
    store().prepareToEnd();
    // From here on the main thread is gone.
    workers.runAll();
    kill();
    run = started();
    EXPECT_THAT(entries(), ElementsAre(2, 1));
}

TEST_F(CaptureHistoryStoreTest, TheEndOfTheProgramKeepsWhatChangedWhileTheRecordsWereWritten)
{
    recordUpTo(3);
    store().remove(ids({2}));
    loop.runPosted();
    ASSERT_EQ(workers.pending(Lane::history), 1u);
    store().undoRemoval();
    store().setTitle(id(1), "changed");
    store().discard(id(3));
    store().prepareToEnd();
    workers.runAll();
    kill();
    EXPECT_THAT(onDisk(), ElementsAre(2, 1));
    run = started();
    EXPECT_THAT(entries(), ElementsAre(2, 1));
    EXPECT_EQ(store().entry(id(1))->title, "changed");
}

// Before its capture is recorded, and while its files are written.
TEST_F(CaptureHistoryStoreTest, TheEndOfTheProgramKeepsAnEdit)
{
    recordUpTo(1);
    record(2, std::make_shared<CaptureSave>());
    for (const int number : {1, 2})
        edit(number);
    loop.runPosted();
    store().prepareToEnd();
    workers.runAll();
    kill();
    run = started();
    for (const int number : {1, 2}) {
        ASSERT_NE(store().entry(id(number)), nullptr);
        EXPECT_EQ(store().entry(id(number))->subject, subject);
        EXPECT_TRUE(QFile::exists(folder / (name(number) + "_edited.png")));
    }
}

TEST_F(CaptureHistoryStoreTest, QuittingWaitsForAnEditThatWaits)
{
    bool isSettled = false;
    record(1);
    edit(1);
    loop.runPosted();
    store().whenSettled([&] {
        isSettled = true;
        const auto written = HistoryJson::entries(read("index.json"));
        ASSERT_TRUE(written && written->records.size() == 1);
        EXPECT_EQ(written->records[0].subject, subject);
    });
    settle();
    EXPECT_TRUE(isSettled);
}

TEST_F(CaptureHistoryStoreTest, QuittingWaitsForATurnThatWaitsForItsRecording)
{
    bool isSettled = false;
    record(1); // 40 x 30 pixels
    std::optional<bool> isTurned;
    store().rotate(id(1), QuarterTurn::right, [&](bool done) { isTurned = done; });
    loop.runPosted();
    store().whenSettled([&] {
        isSettled = true;
        const auto written = HistoryJson::entries(read("index.json"));
        ASSERT_TRUE(written && written->records.size() == 1);
        EXPECT_EQ(written->records[0].pixelWidth, 30);
    });
    settle();
    EXPECT_EQ(isTurned, true);
    EXPECT_TRUE(isSettled);
}

TEST_F(CaptureHistoryStoreTest, QuittingWaitsForEverything)
{
    bool isSettled = false;
    record(1);
    store().whenSettled([&] { isSettled = true; });
    loop.runPosted();
    EXPECT_FALSE(isSettled);
    settle();
    EXPECT_TRUE(isSettled);
    EXPECT_THAT(onDisk(), ElementsAre(1));
}

TEST_F(CaptureHistoryStoreTest, ACaptureOfBeforeLoadingStaysAndLosesNothing)
{
    recordUpTo(2);
    kill();
    run = std::make_unique<Run>(*this);
    store().start();
    record(3);
    settle();
    EXPECT_THAT(entries(), ElementsAre(3, 2, 1));
    EXPECT_EQ(onDisk(), entries());
}

// --- Retention and lists

TEST_F(CaptureHistoryStoreTest, TheOldestGoWithTheirFilesAndFiledOnesStay)
{
    recordUpTo(3);
    store().moveToList({id(1)}, newList());
    run->preferences.set(Settings::historyRetentionCount, 2);
    recordUpTo(0);
    record(4);
    settle();
    EXPECT_THAT(entries(), ElementsAre(4, 3, 1));
    EXPECT_TRUE(filesOf(2).isEmpty());
    run->preferences.set(Settings::historyRetentionCount, 1);
    settle();
    EXPECT_THAT(entries(), ElementsAre(4, 1));
    store().deleteList(store().lists().front().id);
    settle();
    EXPECT_THAT(entries(), ElementsAre(4)) << "what left its list counts again";
}

TEST_F(CaptureHistoryStoreTest, ACaptureIsInOneListAndListsSurvive)
{
    recordUpTo(3);
    const QUuid one = newList();
    const QUuid two = newList();
    store().moveToList({id(3), id(1)}, one);
    store().moveToList({id(1), id(2), id(99)}, two);
    store().renameList(two, "Second");
    store().setListColor(two, "#FF453A");
    store().moveList(two, 0);
    restart();
    ASSERT_EQ(store().lists().size(), 2u);
    EXPECT_EQ(store().lists().front().name, "Second");
    EXPECT_EQ(store().lists().front().colorHex, "#FF453A");
    EXPECT_THAT(numbers(store().entriesIn(two)), ElementsAre(1, 2));
    EXPECT_THAT(numbers(store().entriesIn(one)), ElementsAre(3));
    EXPECT_EQ(store().listedIDs(), ids({1, 2, 3}));
    store().removeFromList(two, ids({1, 3}));
    EXPECT_FALSE(store().isListed(id(1)));
    EXPECT_TRUE(store().isListed(id(3))) << "it is in another list";
}

TEST_F(CaptureHistoryStoreTest, AFiledCaptureLeavesTheTimelineOnly)
{
    recordUpTo(3);
    const QUuid list = newList();
    store().moveToList({id(1), id(2)}, list);
    store().deleteKeepingFiled(ids({1, 3}));
    EXPECT_THAT(numbers(store().timelineEntries()), ElementsAre(2));
    EXPECT_THAT(numbers(store().entriesIn(list)), ElementsAre(1, 2));
    store().undoRemoval();
    EXPECT_THAT(numbers(store().timelineEntries()), ElementsAre(3, 2, 1));
    store().deleteKeepingFiled(ids({1, 3}));
    store().restoreToTimeline(ids({1}));
    EXPECT_THAT(numbers(store().timelineEntries()), ElementsAre(2, 1));
    EXPECT_EQ(store().entry(id(1))->listOnly, std::nullopt);
    store().deleteKeepingFiled(ids({1}));
    store().removeFromList(list, ids({1}));
    EXPECT_THAT(numbers(store().timelineEntries()), ElementsAre(2, 1)) << "it would be nowhere";
}

TEST_F(CaptureHistoryStoreTest, TurningTheHistoryOffDeletesWhatIsNeitherSavedNorFiled)
{
    recordUpTo(3);
    store().setSavedPath(id(1), "/saved.png");
    store().moveToList({id(2)}, newList());
    EXPECT_EQ(store().unsavedCount(), 1);
    run->preferences.set(Settings::historyEnabled, false);
    settle();
    EXPECT_THAT(entries(), ElementsAre(2, 1));
    EXPECT_TRUE(filesOf(3).isEmpty());
    EXPECT_FALSE(store().isRecording());
    restart();
    EXPECT_THAT(entries(), ElementsAre(2));
}

// --- Removal

TEST_F(CaptureHistoryStoreTest, ARemovalCanBeTakenBackUntilItLapses)
{
    recordUpTo(3);
    const QUuid list = newList();
    store().moveToList({id(1), id(2), id(3)}, list);
    store().remove(ids({2}));
    settle();
    EXPECT_THAT(onDisk(), ElementsAre(3, 1));
    EXPECT_THAT(numbers(store().entriesIn(list)), ElementsAre(1, 3));
    ASSERT_TRUE(store().canUndoRemoval());
    store().undoRemoval();
    settle();
    EXPECT_THAT(onDisk(), ElementsAre(3, 2, 1));
    EXPECT_THAT(numbers(store().entriesIn(list)), ElementsAre(1, 2, 3));
    EXPECT_FALSE(filesOf(2).isEmpty());

    store().remove(ids({2}));
    loop.advance(CaptureHistoryStore::undoTime);
    settle();
    EXPECT_FALSE(store().canUndoRemoval());
    EXPECT_TRUE(filesOf(2).isEmpty());
}

TEST_F(CaptureHistoryStoreTest, NothingOfADeletedCaptureStays)
{
    write("index.json", "[1]");
    kill();
    run = started();
    recordUpTo(2);
    store().setTitle(id(1), "unmistakable");
    store().setReading(id(1), {.fullText = "unmistakable", .lines = {{.text = "unmistakable"}}}, {});
    settle();
    EXPECT_TRUE(filesOf(1).contains(name(1) + "_ocr.json"));
    // The index is damaged once more, and put aside with the capture in it.
    write("index.json", read("index.json").replace("]", ",1]"));
    restart();
    const auto mentions = [this] {
        QStringList found;
        for (const QString& file : folder.files())
            if (read(file).contains("unmistakable") || file.startsWith(name(1)))
                found << file;
        return found;
    };
    EXPECT_GE(mentions().size(), 4);
    store().remove(ids({1}));
    restart();
    EXPECT_EQ(mentions(), QStringList());
    EXPECT_THAT(entries(), ElementsAre(2));
    EXPECT_EQ(folder.files().filter("index-unreadable-").size(), 2) << "what else is in them stays";
}

TEST_F(CaptureHistoryStoreTest, AThumbnailThatComesLateDoesNotOutliveItsCapture)
{
    record(1);
    while (store().entries().isEmpty()) {
        workers.run(Lane::history);
        loop.runPosted();
    }
    store().discard(id(1));
    settle();
    EXPECT_EQ(filesOf(1), QStringList());
}

// --- Loading

TEST_F(CaptureHistoryStoreTest, BadInputCostsWhatIsBadAndIsPutAside)
{
    recordUpTo(3);
    const QByteArray good = read("index.json");
    const QByteArray elements = good.mid(1, good.size() - 2);
    const QByteArray outOfOrder = QByteArray(elements)
                                      .replace("\"00000003-", "@")
                                      .replace("\"00000001-", "\"00000003-")
                                      .replace("@", "\"00000001-");

    const struct {
        const char* what;
        QByteArray index;
        std::vector<int> entries;
        int aside;
    } cases[] = {
        {"as it should be", good, {3, 2, 1}, 0},
        {"one bad element", "[" + elements + ",{\"id\":1}]", {3, 2, 1}, 1},
        {"cut off", good.chopped(20), {3, 2}, 1},
        {"an object", "{\"entries\":" + good + "}", {}, 1},
        {"not JSON", "garbage", {}, 1},
        {"empty", "", {}, 1},
        {"an identity twice", "[" + elements + "," + elements + "]", {3, 2, 1}, 0},
        {"without its picture",
         "[" + elements + "," + QByteArray(elements).replace("0000000", "1000000") + "]",
         {3, 2, 1},
         0},
        {"out of order", "[" + outOfOrder + "]", {3, 2, 1}, 0},
    };

    for (const auto& one : cases) {
        SCOPED_TRACE(one.what);
        kill();
        for (const QString& file : folder.files().filter("unreadable"))
            QFile::remove(folder / file);
        write("index.json", one.index);
        run = started();
        auto loaded = entries();
        std::ranges::sort(loaded, std::greater());
        EXPECT_EQ(loaded, one.entries);
        EXPECT_EQ(folder.files().filter("index-unreadable-").size(), one.aside);
        restart();
        EXPECT_EQ(folder.files().filter("index-unreadable-").size(), one.aside) << "it is put aside once";
        record(3 + 1);
        settle();
        EXPECT_EQ(entries().size(), one.entries.size() + 1);
        store().discard(id(4));
        settle();
    }
}

TEST_F(CaptureHistoryStoreTest, ListsAreMadeSound)
{
    recordUpTo(2);
    const QUuid list = newList();
    store().moveToList({id(1)}, list);
    settle();
    kill();
    const QByteArray one = '"' + name(1).toLatin1() + '"';
    const QByteArray members = one + ",\"" + name(77).toLatin1() + "\"," + one;
    const QByteArray second = "{\"id\":\"" + name(500).toLatin1() +
                              R"(","name":"B","colorHex":"#34C759","createdAt":0,"entryIDs":[)" + one + "]}";
    QByteArray lists = read("lists.json").replace(one, members);
    lists.replace("]}]", QByteArray("]}," + second + ",7]"));
    write("lists.json", lists);
    run = started();
    ASSERT_EQ(store().lists().size(), 2u);
    EXPECT_THAT(numbers(store().entriesIn(list)), ElementsAre(1));
    EXPECT_TRUE(store().lists().back().entryIDs.empty());
    EXPECT_EQ(folder.files().filter("lists-unreadable-").size(), 1);
}

TEST_F(CaptureHistoryStoreTest, OldOrphansAreSweptUnlessAnIndexIsPutAside)
{
    recordUpTo(1);
    for (const auto& [number, seconds] : {std::pair(7, 10), {8, 400}, {1, 400}})
        for (const char* ending : {".png", "_ocr.json"}) {
            write(name(number) + ending, "x");
            age(name(number) + ending, seconds);
        }
    write("notes.txt", "x");
    age("notes.txt", 4000);
    kill();
    write("index-unreadable-1.json", "[]");
    run = started();
    EXPECT_FALSE(filesOf(8).isEmpty());
    kill();
    QFile::remove(folder / "index-unreadable-1.json");
    run = started();
    EXPECT_TRUE(filesOf(8).isEmpty());
    EXPECT_EQ(filesOf(7).size(), 2);
    EXPECT_FALSE(filesOf(1).isEmpty());
    EXPECT_TRUE(folder.files().contains("notes.txt"));
    for (const char* ending : {".png", "_ocr.json"})
        age(name(7) + ending, 301);
    loop.advance(std::chrono::seconds(301));
    settle();
    EXPECT_TRUE(filesOf(7).isEmpty()) << "it is looked at once more";
}

TEST_F(CaptureHistoryStoreTest, ALateSweepTakesNeitherWhatCanComeBackNorWhatAnotherProgramHas)
{
    write(name(7) + ".png", "young");
    kill();
    run = started();
    recordUpTo(2);
    const auto other = started();
    other->store.record(capture(3), {}, {});
    settle();
    for (const int number : {1, 2, 3})
        age(name(number) + ".png", 400);
    loop.advance(std::chrono::seconds(296));
    store().remove(ids({1}));
    loop.advance(std::chrono::seconds(6));
    settle();
    store().undoRemoval();
    settle();
    for (const int number : {1, 2, 3})
        EXPECT_FALSE(filesOf(number).filter(".png").isEmpty()) << number;
}

TEST_F(CaptureHistoryStoreTest, AProgramThatOnlyLooksChangesNothing)
{
    recordUpTo(2);
    kill();
    write("index.json", read("index.json").replace("]", ",1]"));
    write(name(9) + ".png", "x");
    age(name(9) + ".png", 4000);
    const QStringList before = folder.files();
    run = std::make_unique<Run>(*this);
    store().startReadOnly();
    settle();
    EXPECT_THAT(entries(), ElementsAre(2, 1));
    EXPECT_EQ(folder.files(), before);
}

TEST_F(CaptureHistoryStoreTest, TwoProgramsLoseNothingOfEachOther)
{
    recordUpTo(2);
    const auto other = started();
    const QUuid list = newList();
    store().moveToList({id(1)}, list);
    record(3);
    settle();
    other->store.record(capture(4), {}, {});
    other->store.setTitle(id(2), "theirs");
    settle();
    EXPECT_THAT(numbers(other->store.entries()), ElementsAre(4, 3, 2, 1));
    EXPECT_THAT(numbers(other->store.entriesIn(list)), ElementsAre(1));
    store().discard(id(3));
    record(5);
    settle();
    EXPECT_THAT(entries(), ElementsAre(5, 4, 2, 1));
    EXPECT_EQ(store().entry(id(2))->title, "theirs");
    other->store.setTitle(id(1), "x");
    settle();
    EXPECT_THAT(numbers(other->store.entries()), ElementsAre(5, 4, 2, 1));
    EXPECT_EQ(onDisk(), entries());
}

// --- Pictures

TEST_F(CaptureHistoryStoreTest, AnEditIsWhatIsSeenFromThenOn)
{
    recordUpTo(1);
    store().setSavedPath(id(1), "/old.png");
    settle();
    const QImage edited = Testing::testPicture({50, 40}, Testing::Texture::blocks, 99);
    store().updateImage({.id = id(1),
                         .flattened = edited,
                         .annotations = {{.kind = Annotation::Kind::line, .points = {{1, 1}, {5, 5}}}},
                         .backdrop = EditorBackdrop(),
                         .subject = CaptureSubject{{1, 1, 5, 5}, 2},
                         .savedPath = "/old.png"});
    loop.runPosted();
    store().setSavedPath(id(1), "/moved.png");
    settle();
    EXPECT_EQ(store().entry(id(1))->savedPath, "/moved.png") << "it changed while the edit was written";
    EXPECT_EQ(store().entry(id(1))->subject, (CaptureSubject{{1, 1, 5, 5}, 2}));
    restart();
    QImage full;
    QImage base;
    QImage thumbnail;
    size_t marks = 0;
    bool hasBackdrop = false;
    store().fullImage(id(1), [&](const QImage& image) { full = image; });
    store().baseImage(id(1), [&](const QImage& image) { base = image; });
    store().thumbnail(id(1), {}, [&](const QImage& image) { thumbnail = image; });
    store().annotations(id(1), [&](const auto& found) { marks = found->size(); });
    store().backdrop(id(1), [&](const auto& found) { hasBackdrop = found == EditorBackdrop(); });
    settle();
    EXPECT_EQ(full.size(), edited.size());
    EXPECT_EQ(base.size(), QSize(40, 30));
    EXPECT_EQ(thumbnail.size(), edited.size());
    EXPECT_EQ(marks, 1u);
    EXPECT_TRUE(hasBackdrop);
}

TEST_F(CaptureHistoryStoreTest, ATurnIsAnEditOfPictureMarksAndSubject)
{
    recordUpTo(1); // 40 x 30 pixels, 20 x 15 points
    QImage base;
    store().baseImage(id(1), [&](const QImage& image) { base = image; });
    settle();
    store().updateImage({.id = id(1),
                         .flattened = base,
                         .annotations = {{.kind = Annotation::Kind::line, .points = {{1, 2}, {5, 6}}}},
                         .backdrop = EditorBackdrop(),
                         .subject = CaptureSubject{{4, 6, 10, 20}, 2}});
    settle();
    std::optional<bool> isTurned;
    store().rotate(id(1), QuarterTurn::right, [&](bool done) { isTurned = done; });
    settle();
    EXPECT_EQ(isTurned, true);
    std::vector<Annotation> marks;
    QImage full;
    QImage turnedBase;
    store().annotations(id(1), [&](const auto& found) { marks = *found; });
    store().fullImage(id(1), [&](const QImage& image) { full = image; });
    store().baseImage(id(1), [&](const QImage& image) { turnedBase = image; });
    settle();
    ASSERT_EQ(marks.size(), 1u);
    EXPECT_THAT(marks[0].points, testing::ElementsAre(Point{2, 19}, Point{6, 15}));
    EXPECT_EQ(store().entry(id(1))->subject, (CaptureSubject{{4, 4, 20, 10}, 2}));
    EXPECT_EQ(store().entry(id(1))->pixelWidth, 30);
    EXPECT_EQ(turnedBase, base.transformed(QTransform().rotate(90)).convertToFormat(turnedBase.format()));
    EXPECT_GT(full.width(), 30) << "the backdrop is around it";
    EXPECT_GT(full.height(), 40);
}

TEST_F(CaptureHistoryStoreTest, NothingIsTurnedWhoseMarksCantBeRead)
{
    recordUpTo(2);
    store().updateImage({.id = id(1), .flattened = Testing::testPicture({40, 30}, Testing::Texture::flat)});
    settle();
    QFile marks(folder / (name(1) + "_annotations.json"));
    ASSERT_TRUE(marks.exists());
    ASSERT_TRUE(marks.open(QFile::WriteOnly));
    marks.write("no marks");
    marks.close();
    std::vector<bool> outcomes;
    store().rotate(id(1), QuarterTurn::left, [&](bool done) { outcomes.push_back(done); });
    settle();
    store().rotate(id(99), QuarterTurn::left, [&](bool done) { outcomes.push_back(done); });
    settle();
    store().rotate(id(2), QuarterTurn::left, [&](bool done) { outcomes.push_back(done); });
    settle();
    EXPECT_THAT(outcomes, testing::ElementsAre(false, false, true));
    EXPECT_EQ(store().entry(id(1))->pixelWidth, 40);
    EXPECT_EQ(store().entry(id(2))->pixelWidth, 30) << "one that was never edited";
}

TEST_F(CaptureHistoryStoreTest, AnEditThatCantBeWrittenChangesNoRecordAndIsTold)
{
    recordUpTo(1);
    const HistoryEntry before = *store().entry(id(1));
    std::vector<bool> outcomes;
    const auto edit = [&](int number) {
        store().updateImage({.id = id(number),
                             .flattened = Testing::testPicture({50, 40}, Testing::Texture::noise),
                             .subject = CaptureSubject{{1, 1, 5, 5}, 2}},
                            [&](const auto& done) { outcomes.push_back(done.has_value()); });
        settle();
    };
    {
        const Testing::FileSizeLimit full(2000); // the marks fit, the picture does not
        edit(1);
    }
    EXPECT_EQ(*store().entry(id(1)), before);
    edit(2);
    edit(1);
    EXPECT_THAT(outcomes, ElementsAre(false, false, true));
    EXPECT_NE(*store().entry(id(1)), before);
}

TEST_F(CaptureHistoryStoreTest, ThumbnailsAreSmallAndCanBeDoneWithout)
{
    CaptureResult large = capture(1);
    large.image = Testing::testPicture({1500, 300}, Testing::Texture::gradient);
    store().record(large, {}, {});
    settle();
    EXPECT_EQ(ImageCodec::decodeFile(folder / (name(1) + "_thumb.jpg"))->size(), QSize(720, 144));
    const auto read = [this](int number, std::stop_token stop = {}) {
        QImage thumbnail;
        store().thumbnail(id(number), std::move(stop), [&](const QImage& image) { thumbnail = image; });
        settle();
        return thumbnail;
    };
    std::stop_source stop;
    stop.request_stop();
    EXPECT_TRUE(read(1, stop.get_token()).isNull());
    write(name(1) + "_thumb.jpg", "not a picture");
    EXPECT_EQ(read(1).size(), QSize(720, 144));
    EXPECT_FALSE(store().cachedThumbnail(id(1)).isNull());
    EXPECT_TRUE(read(2).isNull());
}

TEST_F(CaptureHistoryStoreTest, PixelSizesThatAreMissingAreRead)
{
    recordUpTo(1);
    kill();
    write("index.json", read("index.json").replace(",\"pixelWidth\":40,\"pixelHeight\":30", ""));
    run = started();
    store().backfillPixelSizes();
    settle();
    restart();
    EXPECT_EQ(store().entry(id(1))->pixelWidth, 40);
    EXPECT_EQ(store().entry(id(1))->pixelHeight, 30);
}

TEST_F(CaptureHistoryStoreTest, ACaptureComesBackAsItWas)
{
    recordUpTo(1);
    std::optional<CaptureHistory::Reopened> reopened;
    store().load(id(1), [&](const auto& found) { reopened = found; });
    settle();
    ASSERT_TRUE(reopened);
    EXPECT_EQ(reopened->result.mode, CaptureMode::window);
    EXPECT_EQ(reopened->result.sourceApp, (SourceApp{"Editor", "org.example.Editor"}));
    EXPECT_EQ(reopened->base.image.size(), QSize(40, 30));
    store().load(id(2), [&](const auto& found) { reopened = found; });
    settle();
    EXPECT_FALSE(reopened);
}

} // namespace Kovrel
