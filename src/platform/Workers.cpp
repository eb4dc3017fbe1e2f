#include "platform/Workers.h"

#include "platform/Guarded.h"

namespace Kovrel {

void Workers::perform(const std::function<void()>& job)
{
    try {
        job();
    } catch (...) {
        Guarded::logReason(Guarded::reason());
    }
}

} // namespace Kovrel
