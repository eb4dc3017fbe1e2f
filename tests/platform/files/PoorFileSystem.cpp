#include "tests/platform/files/PoorFileSystem.h"

#include <cerrno>
#include <cstdarg>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

bool isPoor = false;
bool failsAtClosing = false;

int refuse(int error)
{
    errno = error;
    return -1;
}

} // namespace

namespace Kovrel::Testing {

PoorFileSystem::PoorFileSystem(Closing closing)
{
    isPoor = true;
    failsAtClosing = closing == Closing::fails;
}

PoorFileSystem::~PoorFileSystem()
{
    isPoor = failsAtClosing = false;
}

} // namespace Kovrel::Testing

// Instead of the system's own.

extern "C" int open(const char* path, int flags, ...)
{
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = flags & (O_CREAT | O_TMPFILE) ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    if (isPoor && (flags & O_TMPFILE) == O_TMPFILE)
        return refuse(EOPNOTSUPP);
    const int descriptor = int(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
    if (isPoor && descriptor >= 0 && flags & O_CREAT)
        syscall(SYS_fchmod, descriptor, 0755);
    return descriptor;
}

extern "C" int fchmod(int descriptor, mode_t mode) noexcept
{
    return isPoor ? refuse(EPERM) : int(syscall(SYS_fchmod, descriptor, mode));
}

extern "C" int close(int descriptor)
{
    const int result = int(syscall(SYS_close, descriptor));
    return failsAtClosing ? refuse(EIO) : result;
}
