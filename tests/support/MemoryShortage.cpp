#include "tests/support/MemoryShortage.h"

#include <cstdlib>
#include <new>
#include <utility>

namespace Kovrel::Testing {

namespace {

thread_local bool isShort = false;

} // namespace

void MemoryShortage::failNextAllocation()
{
    isShort = true;
}

// The thread sanitizer brings an `operator new` of its own, which is never short.
#if !__has_feature(thread_sanitizer)

static void* allocate(std::size_t size)
{
    void* const memory = std::exchange(isShort, false) ? nullptr : std::malloc(size ? size : 1);
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

#endif

} // namespace Kovrel::Testing

#if !__has_feature(thread_sanitizer)

void* operator new(std::size_t size)
{
    return Kovrel::Testing::allocate(size);
}

void* operator new[](std::size_t size)
{
    return Kovrel::Testing::allocate(size);
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory, std::size_t) noexcept
{
    std::free(memory);
}

#endif
