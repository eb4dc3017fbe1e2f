#include "history/HistoryDragFiles.h"

#include "tests/history/HistoryFixture.h"

#include <QFileInfo>

namespace Kovrel {

namespace {

struct HistoryDragFilesTest : Testing::HistoryFixture {
    HistoryDragFilesTest()
    {
        run = started();
        recordUpTo(1);
        drags.emplace(loop, workers, run->preferences, store(), temporary.path());
    }

    std::optional<QString> drag(int number)
    {
        std::optional<QString> file;
        drags->file(id(number), [&file](const std::optional<QString>& made) { file = made; });
        settle();
        return file;
    }

    Testing::TempFolder temporary;
    std::optional<HistoryDragFiles> drags;
};

} // namespace

TEST_F(HistoryDragFilesTest, ACaptureHasOneFileForAllItsDragsAndItGoesWithTheCapture)
{
    const auto file = drag(1);
    ASSERT_TRUE(file);
    EXPECT_EQ(QFileInfo(*file).fileName(), "Screenshot 2024-03-05 at 09.07.04.png");
    EXPECT_EQ(drag(1), file);
    QFile::remove(*file);
    const auto again = drag(1);
    EXPECT_TRUE(again && QFileInfo::exists(*again)) << "somebody has cleared the temporary folder";

    store().updateImage({.id = id(1), .flattened = Testing::testPicture({50, 40}, Testing::Texture::blocks)});
    settle();
    const auto edited = drag(1);
    ASSERT_TRUE(edited);
    EXPECT_EQ(QImage(*edited).size(), QSize(50, 40)) << "it looks different now";
    store().discard(id(1));
    settle();
    EXPECT_FALSE(QFileInfo::exists(*edited));
    EXPECT_EQ(drag(1), std::nullopt);
    EXPECT_EQ(drag(2), std::nullopt);
}

} // namespace Kovrel
