#include "platform/x11/X11IdleMemory.h"

namespace Kovrel {

namespace {

// Long enough for a burst of captures; a fresh segment costs some 20 milliseconds for 4K.
constexpr auto rest = std::chrono::seconds(3);

} // namespace

void X11IdleMemory::noteUse()
{
    m_loop.post([self = weak_from_this()] {
        if (const auto alive = self.lock())
            alive->waitForRest();
    });
}

void X11IdleMemory::waitForRest()
{
    m_loop.cancel(m_timer);
    m_timer = m_loop.after(rest, [pool = std::weak_ptr(m_pool)] {
        if (const auto alive = pool.lock())
            alive->releaseIdle();
    });
}

} // namespace Kovrel
