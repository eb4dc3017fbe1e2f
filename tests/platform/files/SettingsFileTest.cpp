#include "platform/files/SettingsFile.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/TempFolder.h"

#include <QFile>
#include <QRect>
#include <QSettings>

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Kovrel {

namespace {

struct SettingsFileTest : testing::Test {
    Testing::TempFolder folder;
    QString path = folder / "kovrel/kovrel.conf";
    SettingsFile file{path};

    void put(const QByteArray& content) const
    {
        QDir().mkpath(folder / "kovrel");
        QFile text(path);
        ASSERT_TRUE(text.open(QIODevice::WriteOnly));
        text.write(content);
    }

    static mode_t modeOf(const QString& path)
    {
        struct stat status{};
        return ::stat(QFile::encodeName(path), &status) == 0 ? status.st_mode & 07777 : 0;
    }

    QStringList names() const { return QDir(folder / "kovrel").entryList(QDir::Files | QDir::Hidden); }
};

} // namespace

TEST_F(SettingsFileTest, EveryValueReadsBackAsItWas)
{
    const IniText::Values values{
        {"plain", "jpeg"},
        {"empty", ""},
        {"spaces", "  a "},
        {"signs", "a, b; c=d \"quoted\" back\\slash 50%"},
        {"lines", QString("one\ntwo\ttab\x01"
                          "1f\x7f"
                          "a")},
        {"at", "@ByteArray(no bytes)"},
        {"letters", "Größe 日本 😀"},
        {"bytes", QByteArray("{\"a\":\0\xff\x80"
                             "b}",
                             10)},
        {"no bytes", QByteArray()},
        {"list", QStringList{"#1", "a, b", "@x", ""}},
        {"foreign", QRect(1, 2, 3, 4)},
        {"Section/key", "in a section"},
        {"General/key", "not the general one"},
        {"annotationColorHex.arrow ü/日", "an odd key"},
    };
    const auto read = IniText::parse(IniText::of(values)).value();
    EXPECT_FALSE(read.isDamaged);
    EXPECT_EQ(read.values.keys(), values.keys());
    for (const QString& key : values.keys())
        EXPECT_EQ(read.values[key], values[key]) << qPrintable(key) << ":\n" << IniText::of(values).constData();
    EXPECT_EQ(IniText::of(read.values), IniText::of(values));
}

TEST_F(SettingsFileTest, ADiskThatIsFullLosesNothing)
{
    ASSERT_TRUE(file.change({{"a", "kept"}}));
    EXPECT_EQ(modeOf(path), 0600u);
    EXPECT_EQ(modeOf(folder / "kovrel"), 0700u);
    for (const rlim_t room : {0, 50}) {
        const Testing::FileSizeLimit limit(room);
        const auto changed = file.change({{"b", QString(100, 'x')}});
        ASSERT_FALSE(changed);
        EXPECT_TRUE(changed.error().contains(path)) << qPrintable(changed.error());
    }
    EXPECT_EQ(*file.read(), (IniText::Values{{"a", "kept"}}));
    EXPECT_EQ(names(), QStringList{"kovrel.conf"});
}

TEST_F(SettingsFileTest, WhereNoFilesCanBeOpenedNothingIsTakenForDamaged)
{
    ASSERT_TRUE(file.change({{"a", "kept"}}));
    rlimit usual{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &usual), 0);
    const int next = ::dup(0);
    ::close(next);
    for (int spare = 0; spare < 6; ++spare) {
        const rlimit limit{rlim_t(next + spare), usual.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &limit);
        const auto changed = file.change({{"a", "kept"}});
        ::setrlimit(RLIMIT_NOFILE, &usual);
        EXPECT_EQ(names(), QStringList{"kovrel.conf"}) << spare;
        EXPECT_EQ(*file.read(), (IniText::Values{{"a", "kept"}})) << spare << changed.has_value();
    }
}

TEST_F(SettingsFileTest, ChangesOfAMomentAreAllSeen)
{
    for (int round = 0; round < 50; ++round) {
        ASSERT_TRUE(SettingsFile(path).change({{"a", round % 10}}));
        EXPECT_EQ(SettingsFile(path).read()->value("a").toInt(), round % 10);
    }
}

TEST_F(SettingsFileTest, WhatIsNoFileIsNeitherWaitedForNorReplaced)
{
    ASSERT_TRUE(QDir().mkpath(folder / "kovrel"));
    for (const char* what : {"pipe", "device", "folder"}) {
        if (what == QByteArray("pipe"))
            ASSERT_EQ(::mkfifo(QFile::encodeName(path), 0600), 0);
        else if (what == QByteArray("device"))
            ASSERT_TRUE(QFile::link("/dev/zero", path));
        else
            ASSERT_TRUE(QDir().mkdir(path));
        EXPECT_FALSE(file.read()) << what;
        EXPECT_FALSE(file.change({{"a", 1}})) << what;
        QFile::remove(path);
        struct stat status{};
        ASSERT_EQ(::stat("/dev/zero", &status), 0);
        EXPECT_TRUE(S_ISCHR(status.st_mode));
    }
}

TEST_F(SettingsFileTest, RubbishIsCopiedAsideOnce)
{
    QByteArray rubbish;
    for (int byte = 0; byte < 5000; ++byte)
        rubbish += char(byte * 7919 >> 3);
    for (const QByteArray& damaged : {QByteArray("[General]\na=1\nhalf a li"), rubbish, QByteArray(300, '\0')}) {
        put(damaged);
        const auto first = file.read();
        ASSERT_TRUE(first);
        EXPECT_EQ(*file.read(), *first) << "repaired to what could be read";
        ASSERT_EQ(names().size(), 2);
        QFile copy(folder / "kovrel/" + names().last());
        ASSERT_TRUE(copy.open(QIODevice::ReadOnly));
        EXPECT_EQ(copy.readAll(), damaged);
        copy.remove();
    }
}

TEST_F(SettingsFileTest, ALockThatSomebodyLeftBehindCostsNothing)
{
    put("[General]\na=1\n");
    QFile(path + ".lock").open(QIODevice::WriteOnly);
    EXPECT_TRUE(file.change({{"b", 2}}));
    EXPECT_EQ(file.read()->size(), 2);
}

} // namespace Kovrel
