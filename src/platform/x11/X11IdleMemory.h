#pragma once

#include "platform/MainLoop.h"
#include "platform/x11/X11SegmentPool.h"

#include <memory>

namespace Kovrel {

// Gives the memory that a pool keeps for the next image back to the system once images are no longer taken in quick
// succession.
class X11IdleMemory : public std::enable_shared_from_this<X11IdleMemory> {
public:
    X11IdleMemory(MainLoop& loop, std::shared_ptr<X11SegmentPool> pool) : m_loop(loop), m_pool(std::move(pool)) {}

    // An image is being taken. Any thread.
    void noteUse();

private:
    void waitForRest();

    MainLoop& m_loop;
    std::shared_ptr<X11SegmentPool> m_pool;
    MainLoop::TimerID m_timer = 0;
};

} // namespace Kovrel
