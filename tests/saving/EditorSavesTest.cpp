#include "saving/EditorSaves.h"

#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/LogLines.h"
#include "tests/support/TempFolder.h"
#include "tests/support/TestPictures.h"

#include <gtest/gtest.h>

namespace Kovrel {

using namespace std::chrono_literals;

namespace {

struct EditorSavesTest : testing::Test {
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    std::optional<EditorSaves> saves{std::in_place, loop, workers};
    Testing::TempFolder folder;
    EditorSaves::Request request;
    std::vector<bool> outcomes;
    int callbacks = 0;

    EditorSavesTest()
    {
        request.settings.downscale = true;
        request.image = Testing::testPicture({40, 20}, Testing::Texture::blocks);
        request.pixelScale = 2.0;
    }

    QString existing(const QString& name)
    {
        QFile file(folder / name);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("old");
        return file.fileName();
    }

    void save()
    {
        saves->saveEditorImageInBackground(
            request, [this](const SaveService::Result& result) { outcomes.push_back(result.has_value()); });
    }

    void wait(double seconds)
    {
        saves->afterPendingEditorSaves(seconds, [this] { ++callbacks; });
    }

    void finish()
    {
        workers.run(Lane::editorSave);
        loop.runPosted();
    }
};

} // namespace

TEST_F(EditorSavesTest, TheOpenedFileComesBeforeTheSavedOne)
{
    request.sourceFileURL = existing("source.png");
    request.existingSavedURL = existing("saved.png");
    save();
    EXPECT_TRUE(outcomes.empty());
    finish();
    EXPECT_EQ(outcomes, std::vector<bool>{true});
    EXPECT_EQ(ImageCodec::decodeFile(folder / "source.png")->size(), QSize(40, 20)) << "written back as it is";
    EXPECT_FALSE(ImageCodec::decodeFile(folder / "saved.png"));

    request.sourceFileURL.reset();
    save();
    finish();
    EXPECT_EQ(ImageCodec::decodeFile(folder / "saved.png")->size(), QSize(20, 10)) << "reduced";
}

TEST_F(EditorSavesTest, WithoutAFileNothingIsWritten)
{
    const Testing::LogLines log;
    save();
    request.existingSavedURL = folder / "gone.png";
    save();
    finish();
    EXPECT_EQ(outcomes, (std::vector<bool>{false, false}));
    EXPECT_TRUE(folder.files().isEmpty());
}

TEST_F(EditorSavesTest, WaitingEndsWithTheLastSave)
{
    request.sourceFileURL = existing("a.png");
    wait(15);
    EXPECT_EQ(callbacks, 1) << "nothing to wait for";
    EXPECT_EQ(loop.pendingTimers(), 0u);
    save();
    save();
    wait(15);
    loop.advance(1s);
    EXPECT_EQ(callbacks, 1);
    finish();
    EXPECT_EQ(callbacks, 1) << "looked at every 50 ms";
    loop.advance(50ms);
    EXPECT_EQ(callbacks, 2);
    EXPECT_EQ(outcomes.size(), 2u) << "the completions came first";
    EXPECT_EQ(loop.pendingTimers(), 0u);
}

TEST_F(EditorSavesTest, WaitingEndsAtTheDeadline)
{
    save();
    wait(0.2);
    loop.advance(200ms);
    EXPECT_EQ(callbacks, 0) << "the deadline has not passed yet";
    loop.advance(50ms);
    EXPECT_EQ(callbacks, 1);
    wait(-1);
    EXPECT_EQ(callbacks, 2);
}

TEST_F(EditorSavesTest, SavesOutliveTheirOwner)
{
    request.sourceFileURL = existing("a.png");
    save();
    wait(15);
    saves.reset();
    finish();
    loop.advance(20s);
    EXPECT_TRUE(ImageCodec::decodeFile(folder / "a.png"));
    EXPECT_EQ(callbacks, 0);
}

} // namespace Kovrel
