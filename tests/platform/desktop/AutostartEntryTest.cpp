#include "platform/desktop/AutostartEntry.h"

#include "tests/support/TempFolder.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

struct AutostartEntryTest : testing::Test {
    Testing::TempFolder folder;
    QString path = folder / "autostart/com.kovrel.Kovrel.desktop";
    AutostartEntry entry{path, "/opt/my $apps/100%/kovrel"};

    QByteArray content() const
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void write(const QByteArray& bytes) const
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
};

} // namespace

TEST_F(AutostartEntryTest, IsThereWhileItIsOnAndStartsThisProgram)
{
    EXPECT_FALSE(entry.isOn());
    ASSERT_TRUE(entry.set(true));
    EXPECT_TRUE(entry.isOn());
    EXPECT_TRUE(content().startsWith("[Desktop Entry]\nType=Application\n"));
    EXPECT_TRUE(content().contains("\nExec=\"/opt/my \\\\$apps/100%%/kovrel\" --background\n"))
        << content().constData();
    ASSERT_TRUE(entry.set(false));
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_TRUE(entry.set(false)) << "off already";
}

TEST_F(AutostartEntryTest, WhatOthersWroteIntoItIsBelieved)
{
    ASSERT_TRUE(entry.set(true));

    struct Case {
        const char* content;
        bool isOn;
    };

    for (const auto& [text, isOn] :
         {Case{"[Desktop Entry]\nExec=kovrel\n", true}, Case{"[Desktop Entry]\nExec=kovrel\nHidden=true\n", false},
          Case{"[Desktop Entry]\n Exec = kovrel \nX-GNOME-Autostart-enabled=false\n", false},
          Case{"[Other]\nHidden=true\n[Desktop Entry]\nExec=kovrel\n", true}, Case{"[Desktop Entry]\n", false},
          Case{"", false}, Case{"\xff\x00garbage", false}}) {
        write(text);
        EXPECT_EQ(entry.isOn(), isOn) << text;
        ASSERT_TRUE(entry.set(true));
        EXPECT_TRUE(entry.isOn()) << text;
    }
}

TEST_F(AutostartEntryTest, WhereItCanNotBeWrittenItSaysSo)
{
    QFile inTheWay(folder / "autostart");
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    const auto done = entry.set(true);
    ASSERT_FALSE(done);
    EXPECT_FALSE(done.error().isEmpty() || done.error().contains('\n'));
    EXPECT_FALSE(entry.isOn());
    EXPECT_TRUE(entry.set(false));
}

} // namespace Kovrel
