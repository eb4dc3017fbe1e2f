#include "platform/desktop/ErrorOutput.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>

namespace Kovrel {

namespace {

constexpr off_t mostText = 500; // bytes

} // namespace

ErrorOutput::ErrorOutput() : m_descriptor(memfd_create("kovrel-errors", MFD_CLOEXEC)) {}

ErrorOutput::~ErrorOutput()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

QString ErrorOutput::text() const
{
    const off_t end = std::max<off_t>(lseek(m_descriptor, 0, SEEK_END), 0);
    const off_t length = std::min(end, mostText);
    QByteArray bytes(length, '\0');
    bytes.truncate(std::max<ssize_t>(pread(m_descriptor, bytes.data(), size_t(length), end - length), 0));
    return QString::fromLocal8Bit(bytes).simplified();
}

} // namespace Kovrel
