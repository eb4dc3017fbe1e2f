#include "platform/files/PrivateFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

namespace Kovrel {

bool PrivateFolder::make(const QString& path)
{
    if (path.isEmpty())
        return false;
    const QFileInfo info(QDir::cleanPath(path));
    if (!QFileInfo(info.absolutePath()).isDir() && !make(info.absolutePath()))
        return false;
    const QByteArray name = QFile::encodeName(info.filePath());
    if (::mkdir(name, 0700) != 0 && !info.isDir())
        return false;
    // There are file systems without permissions.
    [[maybe_unused]] const int refused = ::chmod(name, 0700);
    return true;
}

} // namespace Kovrel
