#include "tests/history/FailingDisk.h"

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <fcntl.h>
#include <string_view>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

using Failure = Kovrel::Testing::FailingDisk::Failure;

std::atomic<int> stepsLeft = -1; // below 0: the disk works
Failure kind = Failure::once;
std::atomic<bool> isReached = false;
std::atomic<const char*> unreadableEnding = nullptr;

bool failsNow()
{
    if (stepsLeft < 0)
        return false;
    if (stepsLeft > 0 && --stepsLeft > 0)
        return false;
    const bool fails = kind == Failure::fromThenOn || !isReached;
    isReached = true;
    return fails;
}

bool isUnreadable(const char* path, int flags)
{
    const char* ending = unreadableEnding;
    return ending && (flags & O_ACCMODE) == O_RDONLY && std::string_view(path).ends_with(ending);
}

int refuse(int error)
{
    errno = error;
    return -1;
}

} // namespace

namespace Kovrel::Testing {

FailingDisk::FailingDisk(int step, Failure failure)
{
    kind = failure;
    isReached = false;
    stepsLeft = step;
}

FailingDisk::FailingDisk(const char* ending)
{
    unreadableEnding = ending;
}

FailingDisk::~FailingDisk()
{
    unreadableEnding = nullptr;
    stepsLeft = -1;
}

bool FailingDisk::hasFailed() const
{
    return isReached;
}

} // namespace Kovrel::Testing

// Instead of the system's own.

extern "C" int open(const char* path, int flags, ...)
{
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = flags & (O_CREAT | O_TMPFILE) ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    if ((flags & O_TMPFILE) == O_TMPFILE && failsNow())
        return refuse(ENOSPC);
    if (isUnreadable(path, flags))
        return refuse(EIO);
    return int(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

extern "C" ssize_t write(int descriptor, const void* bytes, size_t size)
{
    return failsNow() ? refuse(ENOSPC) : syscall(SYS_write, descriptor, bytes, size);
}

// Nothing of a test has to outlive a power cut.
extern "C" int fsync(int)
{
    return failsNow() ? refuse(EIO) : 0;
}

extern "C" int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept
{
    return failsNow() ? refuse(ENOSPC) : int(syscall(SYS_linkat, fromFolder, from, toFolder, to, flags));
}

extern "C" int rename(const char* from, const char* to) noexcept
{
    return failsNow() ? refuse(EIO) : int(syscall(SYS_rename, from, to));
}
