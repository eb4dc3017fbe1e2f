#include "platform/files/RegularFile.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace Kovrel {

std::expected<QByteArray, QString> RegularFile::read(const QString& path, qint64 mostBytes)
{
    // Without waiting for a pipe's other end.
    const int descriptor = ::open(QFile::encodeName(path), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (descriptor < 0)
        return std::unexpected(path + ": " + qt_error_string(errno));
    QFile file;
    file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle);
    struct stat status{};
    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode))
        return std::unexpected(path + " is not a regular file.");
    if (status.st_size > mostBytes)
        return std::unexpected(path + " is too large.");
    QByteArray data = file.read(status.st_size);
    if (file.error() != QFileDevice::NoError)
        return std::unexpected(path + ": " + file.errorString());
    return data;
}

} // namespace Kovrel
