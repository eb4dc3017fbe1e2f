#include "history/files/OrphanSweep.h"

#include "history/files/Quarantine.h"
#include "platform/files/HiddenFile.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

namespace Kovrel {

namespace {

bool isOld(const QString& path)
{
    return QFileInfo(path).lastModified().secsTo(QDateTime::currentDateTime()) > OrphanSweep::age.count();
}

} // namespace

bool OrphanSweep::run(const HistoryFiles& files, const QSet<QUuid>& known)
{
    HiddenFile::sweep(files.folder());
    const QStringList names = files.names().value_or(QStringList());
    if (Quarantine::isAmong(names))
        return false;
    bool hasYounger = false;
    for (const QString& name : names) {
        const auto id = HistoryFiles::owner(name);
        if (!id || known.contains(*id))
            continue;
        const QString path = files.folder() + '/' + name;
        if (isOld(path))
            QFile::remove(path);
        else
            hasYounger = true;
    }
    return hasYounger;
}

} // namespace Kovrel
