#include "saving/SaveWithPanel.h"

#include "tests/support/FakeDesktop.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/LogLines.h"
#include "tests/support/TempFolder.h"
#include "tests/support/TestPictures.h"

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

struct SaveWithPanelTest : testing::Test {
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    Testing::TempFolder folder;
    Testing::FakeDesktop desktop{loop};
    Testing::FakeFilePanel& panel = desktop.filePanel();
    Testing::FakeFileManager& files = desktop.fileManager();
    SaveWithPanel saving{loop, workers, panel, files};
    QStringList saved;
    QStringList failures;

    void saveAndAnswer(std::optional<QString> answer)
    {
        panel.choice = std::move(answer);
        saving.saveWithPanel({.image = Testing::testPicture({30, 20}, Testing::Texture::blocks),
                              .suggestedPath = folder / "suggested.tiff",
                              .format = ImageFormat::tiff,
                              .quality = 0.9,
                              .window = nullptr,
                              .onSaved = [this](const QString& path) { saved << path; },
                              .onFailed = [this](const SaveFailure& failure) { failures << failure.message; }});
        loop.runPosted();
        workers.run(Lane::save);
        loop.runPosted();
    }
};

} // namespace

TEST_F(SaveWithPanelTest, TheChosenFileIsWrittenAndShown)
{
    const QString path = folder / "chosen.png";
    saveAndAnswer(path);
    EXPECT_EQ(panel.suggested, folder / "suggested.tiff");
    EXPECT_EQ(saved, QStringList{path});
    EXPECT_EQ(files.paths, QStringList{path});
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_FALSE(file.read(4).contains("PNG")) << "the chosen format, whatever the name says";
    EXPECT_TRUE(ImageCodec::decodeFile(path));
}

TEST_F(SaveWithPanelTest, ACancelledPanelDoesNothing)
{
    saveAndAnswer(std::nullopt);
    EXPECT_TRUE(saved.isEmpty() && failures.isEmpty() && files.paths.isEmpty());
    EXPECT_TRUE(folder.files().isEmpty());
}

TEST_F(SaveWithPanelTest, AFailureIsToldWithItsReason)
{
    const Testing::LogLines log;
    saveAndAnswer(folder / "missing/chosen.png");
    EXPECT_TRUE(saved.isEmpty() && files.paths.isEmpty());
    ASSERT_EQ(failures.size(), 1);
    EXPECT_TRUE(failures.first().contains(folder / "missing")) << qPrintable(failures.first());
    EXPECT_EQ(log.lines(), QStringList{"com.kovrel.capture: Kovrel save-as failed: " + failures.first()});
}

} // namespace Kovrel
