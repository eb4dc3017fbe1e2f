#pragma once

#include "history/records/HistoryState.h"

#include <array>

namespace Kovrel {

// How many captures are kept. Captures in lists stay, and don't count. Any thread.
namespace Retention {

// What is offered to users.
inline constexpr std::array choices{25, 50, 100, 200, 2000, 20000};

// The cap that a setting means: what is below 1 counts as 50.
int cap(int setting);

// The oldest captures beyond the cap.
QSet<QUuid> surplus(const HistoryState& state, int cap);

} // namespace Retention

} // namespace Kovrel
