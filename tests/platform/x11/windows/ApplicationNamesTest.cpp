#include "platform/x11/windows/ApplicationNames.h"
#include "tests/support/TempFolder.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <filesystem>

namespace Kovrel {

namespace {

void write(const QString& path, const QByteArray& text)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
}

} // namespace

TEST(ApplicationNames, AreFoundByClassThenByFileName)
{
    const Testing::TempFolder own;
    const Testing::TempFolder shared;
    ASSERT_TRUE(QDir(shared.path()).mkdir("kde"));
    write(own / "terminal.desktop", "[Desktop Entry]\nName=My Terminal\n");
    write(shared / "terminal.desktop", "[Desktop Entry]\nName=Terminal\n");
    write(shared / "org.example.Viewer.desktop", "[Other]\nName=No\n[Desktop Entry]\nName = Viewer\nName[xx]=Andere\n");
    write(shared / "kde/mail.desktop", "[Desktop Entry]\nName=Post\nStartupWMClass=Terminal2\n");
    write(shared / "terminal2.desktop", "[Desktop Entry]\nName=Another\n");
    write(shared / "nameless.desktop", "[Desktop Entry]\nExec=x\n");
    ApplicationNames names({own.path(), shared.path(), "/nowhere"});

    struct Case {
        QByteArray instanceName;
        QByteArray className;
        SourceApp app;
    };

    const Case cases[] = {
        {"terminal", "Terminal", {"My Terminal", "terminal"}},
        {"x", "TERMINAL2", {"Post", "kde-mail"}},
        {"viewer", "Viewer", {"Viewer", "org.example.Viewer"}},
        {"viewer", "Unknown", {"Viewer", "org.example.Viewer"}},
        {"a", "Nameless", {"Nameless", "Nameless"}},
        {"only", "", {"only", "only"}},
        {"", "", {"", ""}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(names.of(c.instanceName, c.className), c.app) << c.className.constData();
}

TEST(ApplicationNames, InstallingAnApplicationIsNoticed)
{
    const Testing::TempFolder folder;
    // A folder's time goes on in ticks of some milliseconds, and all of this fits into one.
    const auto yesterday = std::filesystem::file_time_type::clock::now() - std::chrono::hours(24);
    std::filesystem::last_write_time(folder.path().toStdString(), yesterday);
    ApplicationNames names({folder.path()});
    EXPECT_EQ(names.of("new", "New").name, "New");
    write(folder / "new.desktop", "[Desktop Entry]\nName=Brand New\n");
    EXPECT_EQ(names.of("new", "New").name, "Brand New");
}

} // namespace Kovrel
