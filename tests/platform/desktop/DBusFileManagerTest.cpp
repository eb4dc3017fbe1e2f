#include "platform/desktop/DBusFileManager.h"
#include "tests/support/TempFolder.h"
#include "tests/support/TestBus.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QEventLoop>
#include <QFile>

#include <gtest/gtest.h>

namespace Kovrel {

// Stands on the bus as the desktop's file manager.
class ListeningFileManager : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public Q_SLOTS:

    void ShowItems(const QStringList& uris, const QString&)
    {
        shown << uris;
        Q_EMIT asked();
    }

Q_SIGNALS:
    void asked();

public:
    QStringList shown;
};

TEST(DBusFileManager, AsksTheDesktopsFileManagerOrOpensTheFolder)
{
    const Testing::TestBus bus;
    DBusFileManager manager;
    QEventLoop loop;
    {
        ListeningFileManager listening;
        auto connection = QDBusConnection::connectToBus(bus.address(), "file manager");
        connection.registerObject("/org/freedesktop/FileManager1", &listening, QDBusConnection::ExportAllSlots);
        ASSERT_TRUE(connection.registerService("org.freedesktop.FileManager1"));
        QObject::connect(&listening, &ListeningFileManager::asked, &loop, &QEventLoop::quit);
        manager.reveal("/tmp/a b#ä.png");
        loop.exec();
        EXPECT_EQ(listening.shown, QStringList{"file:///tmp/a%20b%23%C3%A4.png"});
        QDBusConnection::disconnectFromBus("file manager");
    }

    // Nobody answers now. A program of that name passes on what it is asked to open.
    const Testing::TempFolder folder;
    QFile opener(folder / "xdg-open");
    ASSERT_TRUE(opener.open(QIODevice::WriteOnly));
    opener.write("#!/bin/sh\necho \"$1\" > \"" + folder.path().toUtf8() + "/opened.part\"\n" + "mv \"" +
                 folder.path().toUtf8() + "/opened.part\" \"" + folder.path().toUtf8() + "/opened\"\n");
    opener.close();
    opener.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    qputenv("PATH", folder.path().toUtf8() + ":" + qgetenv("PATH"));
    manager.reveal("/tmp/shots/a.png");
    QFile opened(folder / "opened");
    while (!opened.exists())
        QCoreApplication::processEvents(QEventLoop::AllEvents);
    ASSERT_TRUE(opened.open(QIODevice::ReadOnly));
    EXPECT_EQ(opened.readAll(), "/tmp/shots\n");
}

} // namespace Kovrel

#include "DBusFileManagerTest.moc"
