#include "saving/DragFiles.h"
#include "tests/support/PictureDifference.h"
#include "tests/support/TempFolder.h"
#include "tests/support/TestPictures.h"

#include <QFileInfo>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace Kovrel {

namespace {

const QDateTime date(QDate(2024, 3, 5), QTime(9, 7, 3));
const QString usualName = "Screenshot 2024-03-05 at 09.07.03";

struct stat statusOf(const QString& path)
{
    struct stat status{};
    EXPECT_EQ(::stat(QFile::encodeName(path), &status), 0) << qPrintable(path);
    return status;
}

struct DragFilesTest : testing::Test {
    Testing::TempFolder folder;
    DragFiles files{folder / "cache/kovrel/tmp"};
    SaveSettings settings;
    QImage image = Testing::testPicture({30, 20}, Testing::Texture::blocks);

    QString source(const QByteArray& bytes = "png bytes")
    {
        QFile file(folder / "source.png");
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }
};

} // namespace

TEST_F(DragFilesTest, EachDragHasItsOwnPrivateFolder)
{
    const auto first = files.writeTempImage(settings, image, date);
    const auto second = files.writeTempImage(settings, image, date);
    ASSERT_TRUE(first && second);
    EXPECT_NE(*first, *second);
    EXPECT_EQ(QFileInfo(*first).fileName(), usualName + ".png");
    EXPECT_EQ(statusOf(*first).st_mode & 0777, 0600u);
    for (QString above = QFileInfo(*first).path(); above != folder.path() + "/cache"; above = QFileInfo(above).path())
        EXPECT_EQ(statusOf(above).st_mode & 0777, 0700u) << qPrintable(above);
    EXPECT_TRUE(Testing::samePicture(ImageCodec::decodeFile(*first).value(), image));
}

TEST_F(DragFilesTest, LongNamesAreShortened)
{
    settings.fileNameTemplate = QString("ä").repeated(300);
    for (const auto& path :
         {files.writeTempImage(settings, image, date), files.linkTempImage(settings, source(), date)}) {
        ASSERT_TRUE(path);
        EXPECT_TRUE(path->endsWith("ää.png"));
        EXPECT_TRUE(QFileInfo::exists(*path));
    }
}

TEST_F(DragFilesTest, ALinkIsTheSameFile)
{
    const auto linked = files.linkTempImage(settings, source(), date);
    ASSERT_TRUE(linked);
    EXPECT_EQ(QFileInfo(*linked).fileName(), usualName + ".png");
    EXPECT_EQ(statusOf(*linked).st_ino, statusOf(folder / "source.png").st_ino);
}

TEST_F(DragFilesTest, WhatCannotBeLinkedIsCopied)
{
    // Files of /proc lie on another file system.
    const auto copied = files.linkTempImage(settings, "/proc/version", date);
    ASSERT_TRUE(copied);
    EXPECT_GT(QFileInfo(*copied).size(), 10);
    EXPECT_EQ(statusOf(*copied).st_mode & 0777, 0600u);
}

TEST_F(DragFilesTest, FailuresGiveNoPath)
{
    EXPECT_FALSE(files.linkTempImage(settings, folder / "missing.png", date));
    EXPECT_FALSE(files.linkTempImage(settings, folder.path(), date));
    EXPECT_FALSE(files.writeTempImage(settings, QImage(), date));
    EXPECT_FALSE(QFile::exists(files.dragTempRoot())) << "nothing was made for nothing";
    source();
    const DragFiles blocked(folder / "source.png");
    EXPECT_FALSE(blocked.writeTempImage(settings, image, date));
    EXPECT_FALSE(blocked.linkTempImage(settings, folder / "source.png", date));
}

TEST_F(DragFilesTest, SweepingRemovesEverythingInsideAndNothingElse)
{
    const QString kept = source("kept");
    ASSERT_TRUE(files.linkTempImage(settings, kept, date));
    ASSERT_TRUE(QDir().mkdir(folder / "outside"));
    ASSERT_TRUE(QFile::copy(kept, folder / "outside/file"));
    ASSERT_TRUE(QFile::link(folder / "outside", files.dragTempRoot() + "/link"));
    ASSERT_TRUE(QFile::copy(kept, files.dragTempRoot() + "/.hidden"));
    files.sweepDragTemp();
    EXPECT_TRUE(QDir(files.dragTempRoot()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).isEmpty());
    EXPECT_TRUE(QFile::exists(kept));
    EXPECT_TRUE(QFile::exists(folder / "outside/file"));
    DragFiles(folder / "missing").sweepDragTemp();
}

} // namespace Kovrel
