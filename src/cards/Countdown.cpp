#include "cards/Countdown.h"

#include <algorithm>

namespace Kovrel {

double Countdown::remaining(std::chrono::microseconds now) const
{
    if (!isShown())
        return 0;
    const auto left = deadline - stoppedAt.value_or(now);
    return std::clamp(double(left.count()) / double(total.count()), 0.0, 1.0);
}

} // namespace Kovrel
