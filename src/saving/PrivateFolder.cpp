#include "saving/PrivateFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

namespace Kovrel {

bool PrivateFolder::make(const QString& path)
{
    const QFileInfo info(QDir::cleanPath(path));
    if (!QFileInfo(info.absolutePath()).isDir() && !make(info.absolutePath()))
        return false;
    const QByteArray name = QFile::encodeName(info.filePath());
    return (::mkdir(name, 0700) == 0 || info.isDir()) && ::chmod(name, 0700) == 0;
}

} // namespace Kovrel
