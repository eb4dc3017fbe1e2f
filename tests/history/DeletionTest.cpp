#include "history/HistoryDragFiles.h"
#include "history/HistoryIndexer.h"
#include "tests/history/HistoryFixture.h"
#include "tests/support/LogLines.h"

#include <QDirIterator>

namespace Kovrel {

namespace {

// The history with all that follows its captures.
struct DeletionTest : Testing::HistoryFixture {
    DeletionTest() { begin(); }

    void begin()
    {
        run = started();
        indexer.emplace(loop, workers, ports, store(), folder.path());
        drags.emplace(loop, workers, run->preferences, store(), temporary.path());
    }

    void loadWords()
    {
        indexer->load();
        settle();
    }

    // Nothing runs on the main thread from here on.
    void end()
    {
        store().prepareToEnd();
        indexer->prepareToEnd();
        while (workers.runAll() > 0) {
        }
        drags.reset();
        indexer.reset();
        run.reset();
    }

    void wait(std::chrono::milliseconds time)
    {
        loop.advance(time);
        settle();
    }

    static QString word(int number) { return QString("unmistakable%1").arg(QChar('a' + number)); }

    OCRResult text(int number) const { return {.fullText = word(number), .lines = {{.text = word(number)}}}; }

    void edit(int number)
    {
        store().updateImage(
            {.id = id(number),
             .flattened = Testing::testPicture({50, 40}, Testing::Texture::blocks),
             .annotations = {{.kind = Annotation::Kind::text, .points = {{1, 1}}, .text = word(number)}},
             .backdrop = EditorBackdrop()});
        settle();
        run->ocr.storeReading(text(number), {{.payload = word(number), .boundingBox = {}}}, {50, 40},
                              {id(number), CaptureOCRStore::Kind::edited});
        indexer->set(id(number), text(number));
    }

    // Captures that have everything a capture can have, and an index that is put aside with them.
    void fill()
    {
        loadWords();
        recordUpTo(5);
        const QUuid list = store().createList("List", "#2F6BFF");
        store().moveToList({id(2), id(3), id(5)}, list);
        for (int number = 1; number <= 5; ++number) {
            store().setTitle(id(number), word(number));
            store().setReading(id(number), text(number), {{.payload = word(number), .boundingBox = {}}});
            settle();
        }
        edit(2);
        store().setSavedPath(id(3), saved / "saved.png");
        drags->file(id(4), [](const auto&) {});
        wait(std::chrono::seconds(1));
        end();
        write("index.json", read("index.json").replace("]", ",1]"));
        write("lists.json", read("lists.json").replace("]}]", "]},1]"));
        begin();
    }

    // The files below Kovrel's folders that are named after a capture or have its words.
    QStringList traces(int number) const
    {
        QStringList found;
        for (const QString& root : {folder.path(), temporary.path()})
            for (QDirIterator files(root, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories); files.hasNext();) {
                QFile file(files.next());
                const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
                if (file.fileName().contains(name(number)) || bytes.contains(name(number).toLatin1()) ||
                    bytes.contains(word(number).toLatin1()))
                    found << QDir(root).relativeFilePath(file.fileName());
            }
        return found;
    }

    Testing::TempFolder temporary;
    Testing::TempFolder saved;
    Ports ports;
    std::optional<HistoryIndexer> indexer;
    std::optional<HistoryDragFiles> drags;
    const Testing::LogLines log;
};

} // namespace

TEST_F(DeletionTest, NothingOfADeletedCaptureStaysAnywhere)
{
    struct Case {
        const char* what;
        bool hasWords; // they were loaded before
        std::function<void()> work;
    };

    const QSet<QUuid> doomed{id(1), id(2), id(3), id(4)};
    const Case cases[] = {
        {"it can't be taken back any more", true,
         [&] {
             store().remove(doomed);
             wait(CaptureHistoryStore::undoTime);
             wait(std::chrono::milliseconds(400));
         }},
        {"the program ends at once", true,
         [&] {
             store().remove(doomed);
             end();
         }},
        {"it ends before words are loaded", false,
         [&] {
             store().remove(doomed);
             end();
         }},
        {"it ends while they are being loaded", false,
         [&] {
             indexer->load();
             store().remove(doomed);
             end();
         }},
        {"it ends with the removal half done", true,
         [&] {
             store().remove(doomed);
             loop.advance(CaptureHistoryStore::undoTime);
             end();
         }},
        {"everything that is in no list goes", true,
         [&] {
             store().removeFromList(store().lists().front().id, doomed);
             store().clearUnfiled();
             end();
         }},
    };

    for (const Case& one : cases) {
        SCOPED_TRACE(one.what);
        fill();
        QFile file(saved / "saved.png");
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        if (one.hasWords)
            loadWords();
        drags->file(id(4), [](const auto&) {});
        settle();
        for (int number = 1; number <= 4; ++number)
            EXPECT_GE(traces(number).size(), 6);

        one.work();
        for (int number = 1; number <= 4; ++number)
            EXPECT_EQ(traces(number), QStringList()) << number;
        EXPECT_TRUE(QFile::exists(saved / "saved.png"));
        EXPECT_GE(traces(5).size(), 6) << "what was not deleted stays";
        EXPECT_TRUE(traces(5).contains("search-index.json"));

        if (run)
            end();
        QDir(folder.path()).removeRecursively();
        begin();
    }
}

TEST_F(DeletionTest, AFileToDragThatComesLateDoesNotOutliveItsCapture)
{
    recordUpTo(1);
    drags->file(id(1), [](const auto& path) { EXPECT_EQ(path, std::nullopt); });
    while (workers.pending(Lane::clipboard) == 0) {
        workers.run(Lane::history);
        workers.run(Lane::thumbnails);
        loop.runPosted();
    }
    store().discard(id(1));
    settle();
    QDirIterator files(temporary.path(), QDir::Files, QDirIterator::Subdirectories);
    EXPECT_FALSE(files.hasNext());
}

TEST_F(DeletionTest, WordsOfWhatAnotherProgramDeletesGoToo)
{
    loadWords();
    recordUpTo(2);
    for (const int number : {1, 2})
        store().setReading(id(number), text(number), {});
    settle();
    const auto other = started();
    other->store.discard(id(1));
    settle();
    store().setTitle(id(2), "changed");
    settle();
    EXPECT_FALSE(store().entry(id(1)));
    EXPECT_FALSE(indexer->index().knows(id(1)));
    end();
    EXPECT_EQ(traces(1), QStringList());
    EXPECT_TRUE(traces(2).contains("search-index.json"));
}

} // namespace Kovrel
