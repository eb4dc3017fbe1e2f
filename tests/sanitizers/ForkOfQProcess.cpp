// Only in tests under the thread sanitizer, which cannot follow a child that shares its parent's memory, as QProcess
// makes them: such a child gets a copy of the memory instead, as after `fork`.

#include <sched.h>

#include <cstdarg>

extern "C" int __interceptor_clone(int (*run)(void*), void* stack, int flags, void* argument, ...);

extern "C" int clone(int (*run)(void*), void* stack, int flags, void* argument, ...)
{
    va_list further;
    va_start(further, argument);
    void* const parentsCopyOfTheID = va_arg(further, void*);
    void* const threadStorage = va_arg(further, void*);
    void* const childsCopyOfTheID = va_arg(further, void*);
    va_end(further);
    return __interceptor_clone(run, stack, flags & ~CLONE_VM, argument, parentsCopyOfTheID, threadStorage,
                               childsCopyOfTheID);
}
