#include "platform/x11/windows/ApplicationNames.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QLocale>
#include <QStandardPaths>

namespace Kovrel {

namespace {

// The values of the group [Desktop Entry], by key.
QHash<QString, QString> readEntry(const QString& path)
{
    QHash<QString, QString> values;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return values;
    bool isInGroup = false;
    for (const QByteArray& bytes : file.readAll().split('\n')) {
        const QString line = QString::fromUtf8(bytes).trimmed();
        if (line.startsWith('['))
            isInGroup = line == u"[Desktop Entry]";
        else if (const qsizetype equals = line.indexOf('='); isInGroup && equals > 0)
            values.insert(line.left(equals).trimmed(), line.mid(equals + 1).trimmed());
    }
    return values;
}

QString localName(const QHash<QString, QString>& entry)
{
    const QString language = QLocale().name(); // de_AT
    for (const QString& suffix : QStringList{'[' + language + ']', '[' + language.section('_', 0, 0) + ']', ""}) {
        const QString name = entry.value("Name" + suffix);
        if (!name.isEmpty())
            return name;
    }
    return {};
}

// The first folder's entry counts.
void add(QHash<QString, SourceApp>& apps, const QString& key, const SourceApp& app)
{
    if (!key.isEmpty() && !apps.contains(key.toLower()))
        apps.insert(key.toLower(), app);
}

} // namespace

ApplicationNames::ApplicationNames(QStringList folders) : m_folders(std::move(folders)) {}

QStringList ApplicationNames::standardFolders()
{
    return QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
}

SourceApp ApplicationNames::of(const QByteArray& instanceName, const QByteArray& className)
{
    readAgainWhenChanged();
    for (const QByteArray& name : {className, instanceName}) {
        const QString key = QString::fromUtf8(name).toLower();
        const SourceApp app = m_byClass.value(key, m_byFileName.value(key));
        if (!app.name.isEmpty())
            return app;
    }
    const QString name = QString::fromUtf8(className.isEmpty() ? instanceName : className);
    return {name, name};
}

void ApplicationNames::readAgainWhenChanged()
{
    QString state = QLocale().name();
    for (const QString& folder : m_folders)
        state += folder + QFileInfo(folder).lastModified().toString(Qt::ISODateWithMs);
    if (std::exchange(m_state, state) == state)
        return;
    m_byClass.clear();
    m_byFileName.clear();
    for (const QString& folder : m_folders)
        readFolder(folder);
}

void ApplicationNames::readFolder(const QString& folder)
{
    QDirIterator files(folder, {"*.desktop"}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        const auto entry = readEntry(path);
        const QString id = QDir(folder).relativeFilePath(path).chopped(int(qstrlen(".desktop"))).replace('/', '-');
        const SourceApp app{localName(entry), id};
        if (app.name.isEmpty())
            continue;
        add(m_byClass, entry.value("StartupWMClass"), app);
        add(m_byFileName, id, app);
        add(m_byFileName, id.section('.', -1), app); // "org.example.Editor" calls its windows "editor"
    }
}

} // namespace Kovrel
