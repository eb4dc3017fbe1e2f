#include "platform/files/AtomicFile.h"
#include "platform/files/HiddenFile.h"
#include "tests/platform/files/PoorFileSystem.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/TempFolder.h"

#include <QFile>

#include <gtest/gtest.h>

#include <csignal>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Kovrel {

namespace {

using AtomicFile::Access;
using Testing::PoorFileSystem;

struct AtomicFileTest : testing::Test {
    Testing::TempFolder folder;
    QString path = folder / "file";

    QByteArray content() const
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    mode_t mode() const
    {
        struct stat status{};
        return ::stat(QFile::encodeName(path), &status) == 0 ? status.st_mode & 07777 : 0;
    }
};

} // namespace

TEST_F(AtomicFileTest, WhatIsNotWholeDoesNotTakeTheOldOnesPlace)
{
    ASSERT_TRUE(AtomicFile::write(path, "old", Access::onlyOwner));
    {
        const Testing::FileSizeLimit limit(2);
        EXPECT_FALSE(AtomicFile::write(path, "new", Access::onlyOwner));
    }
    for (const auto closing : {PoorFileSystem::Closing::works, PoorFileSystem::Closing::fails}) {
        const PoorFileSystem poor(closing);
        const auto written = AtomicFile::write(path, "new", Access::onlyOwner);
        EXPECT_EQ(written.has_value(), closing == PoorFileSystem::Closing::works);
        if (!written)
            EXPECT_TRUE(written.error().message.contains("Input/output error")) << qPrintable(written.error().message);
        EXPECT_EQ(content(), "new");
        EXPECT_EQ(folder.files(), QStringList{"file"});
        EXPECT_EQ(AtomicFile::write(folder / "other", "x", Access::everyoneReads).has_value(), written.has_value());
        QFile::remove(folder / "other");
    }
}

TEST_F(AtomicFileTest, PermissionsAreKeptOrTheOwnersAlone)
{
    ASSERT_TRUE(AtomicFile::write(path, "old", Access::everyoneReads));
    ASSERT_EQ(::chmod(QFile::encodeName(path), 0640), 0);
    ASSERT_TRUE(AtomicFile::write(path, "new", Access::everyoneReads));
    EXPECT_EQ(mode(), 0640u);
    ASSERT_TRUE(AtomicFile::write(path, "secret", Access::onlyOwner));
    EXPECT_EQ(mode(), 0600u);
}

TEST_F(AtomicFileTest, OnlyRegularFilesAreReplaced)
{
    const QByteArray name = QFile::encodeName(folder / "thing");
    ASSERT_TRUE(QFile::link("/dev/zero", folder / "link"));
    ASSERT_EQ(::mkfifo(name, 0600), 0);
    for (const QString& thing : {folder / "thing", folder / "link", folder.path()}) {
        const auto written = AtomicFile::write(thing, "x", Access::onlyOwner);
        ASSERT_FALSE(written) << qPrintable(thing);
        EXPECT_TRUE(written.error().message.contains("not a regular file")) << qPrintable(written.error().message);
    }
}

TEST_F(AtomicFileTest, HiddenFilesOfTheDeadAreSweptAndNoOthers)
{
    const PoorFileSystem poor;
    const HiddenFile ours(folder.path(), 0600);
    ASSERT_EQ(folder.files().size(), 1);
    const pid_t child = ::fork();
    if (child == 0) {
        const HiddenFile lost(folder.path(), 0600);
        ::kill(::getpid(), SIGKILL);
    }
    ::waitpid(child, nullptr, 0);
    EXPECT_EQ(folder.files().size(), 2);
    QFile(folder / ".kovrelrc").open(QIODevice::WriteOnly);
    HiddenFile::sweep(folder.path());
    EXPECT_EQ(folder.files().size(), 2) << "the one that is being written, and somebody else's";
}

} // namespace Kovrel
