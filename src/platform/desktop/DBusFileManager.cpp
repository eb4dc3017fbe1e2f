#include "platform/desktop/DBusFileManager.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QProcess>
#include <QUrl>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.desktop")

void openFolderOf(const QString& path)
{
    if (!QProcess::startDetached("xdg-open", {QFileInfo(path).absolutePath()}))
        qCWarning(log, "There is no file manager to show %s", qUtf8Printable(path));
}

QDBusMessage showItems(const QString& path)
{
    const QString name = "org.freedesktop.FileManager1";
    QDBusMessage call = QDBusMessage::createMethodCall(name, "/org/freedesktop/FileManager1", name, "ShowItems");
    call << QStringList{QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)} << QString();
    return call;
}

} // namespace

void DBusFileManager::reveal(const QString& path)
{
    auto* const watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(showItems(path)));
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, path] {
        if (watcher->isError())
            openFolderOf(path);
        watcher->deleteLater();
    });
}

} // namespace Kovrel
