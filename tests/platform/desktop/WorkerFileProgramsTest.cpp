#include "platform/desktop/WorkerFilePrograms.h"
#include "platform/plugins/PluginFileOpener.h"
#include "tests/support/EventLoop.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/LogLines.h"
#include "tests/support/TempFolder.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

// A home with programs of its own: each writes down what it was asked to open.
struct WorkerFileProgramsTest : testing::Test {
    // One for all, since GIO looks only once where they are.
    static const Testing::TempFolder& home()
    {
        static const Testing::TempFolder home;
        return home;
    }

    const Testing::TempFolder& folder = home();
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    QString log = folder / "log";

    void SetUp() override
    {
        qputenv("XDG_DATA_HOME", (folder / "data").toUtf8());
        qputenv("XDG_DATA_DIRS", (folder / "system").toUtf8());
        qputenv("XDG_CONFIG_HOME", (folder / "config").toUtf8());
        qputenv("PATH", (folder / "bin").toUtf8() + ":/usr/bin:/bin");
        QDir().mkpath(folder / "system");
        QFile::link("/usr/share/mime", folder / "system/mime"); // the types of files, without this machine's programs
        addProgram("viewer", "");
        addProgram("painter", "");
        addProgram("converter", "NoDisplay=true\n");
        write("config/mimeapps.list",
              "[Default Applications]\nimage/png=viewer.desktop\n"
              "[Added Associations]\nimage/png=painter.desktop;converter.desktop;gone.desktop\n");
        write("bin/xdg-email", script("mail"), true);
    }

    QByteArray script(const QByteArray& name) const
    {
        return "#!/bin/sh\necho \"" + name + ": $*\" >> '" + log.toUtf8() + "'\n";
    }

    void addProgram(const QByteArray& name, const QByteArray& more)
    {
        write("bin/" + name, script(name), true);
        write("data/applications/" + name + ".desktop", "[Desktop Entry]\nType=Application\nName=The " + name +
                                                            "\nIcon=" + name + "-icon\nExec=" + name + " %f\n" + more);
    }

    void write(const QByteArray& name, const QByteArray& text, bool isProgram = false)
    {
        QDir().mkpath(QFileInfo(folder / QString(name)).path());
        QFile file(folder / QString(name));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(text);
        if (isProgram)
            file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    void work()
    {
        workers.runAll();
        loop.runPosted();
    }

    QByteArray logged() const
    {
        QFile file(log);
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }
};

} // namespace

TEST_F(WorkerFileProgramsTest, ThePreferredProgramIsFirstAndOnlyThoseThatPeopleSeeAreTold)
{
    WorkerFilePrograms programs(loop, workers, std::make_shared<PluginFileOpener>());
    std::vector<FileProgram> told;
    programs.openers("shot.png", [&](auto answer) { told = std::move(answer); });
    work();
    ASSERT_EQ(told.size(), 2u);
    EXPECT_EQ(told[0], (FileProgram{"viewer.desktop", "The viewer", "viewer-icon"}));
    EXPECT_EQ(told[1].id, "painter.desktop");
    programs.openers("shot.nobody-knows", [&](auto answer) { told = std::move(answer); });
    work();
    EXPECT_TRUE(told.empty());
}

TEST_F(WorkerFileProgramsTest, AnotherProgramCanBecomeThePreferredOne)
{
    WorkerFilePrograms programs(loop, workers, std::make_shared<PluginFileOpener>());
    std::vector<FileProgram> told;
    programs.prefer("shot.png", "painter.desktop");
    programs.prefer("shot.png", "unheard-of.desktop");
    programs.openers("other.PNG", [&](auto answer) { told = std::move(answer); });
    work();
    ASSERT_FALSE(told.empty());
    EXPECT_EQ(told[0].id, "painter.desktop");
}

TEST_F(WorkerFileProgramsTest, FilesReachTheirProgramsWhateverTheirNames)
{
    WorkerFilePrograms programs(loop, workers, std::make_shared<PluginFileOpener>());
    EXPECT_FALSE(programs.canMail()) << "nobody has looked yet";
    work();
    EXPECT_TRUE(programs.canMail());
    write("a 100% 'shot'.png", "\x89PNG\r\n\x1a\n");
    const QString path = folder / "a 100% 'shot'.png";

    const QByteArray end = ": " + path.toUtf8() + '\n';
    QByteArray expected;
    const auto expect = [&](const QByteArray& line) {
        expected += line;
        work();
        EXPECT_TRUE(Testing::waitFor([&] { return logged() == expected; })) << logged().constData();
    };
    programs.open(path);
    expect("viewer" + end);
    programs.open(path, "painter.desktop");
    expect("painter" + end);
    programs.mail(path);
    expect("mail: --attach " + path.toUtf8() + '\n');
}

TEST_F(WorkerFileProgramsTest, WhatCannotBeOpenedIsLogged)
{
    WorkerFilePrograms programs(loop, workers, std::make_shared<PluginFileOpener>());
    work();
    const Testing::LogLines lines;
    programs.open(folder / "missing.nobody-knows");
    programs.open(folder / "missing.png", "gone.desktop");
    work();
    EXPECT_EQ(Testing::LogLines::lines().size(), 2);
}

} // namespace Kovrel
