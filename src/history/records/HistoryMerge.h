#pragma once

#include "history/records/HistoryState.h"

namespace Kovrel {

// Two programs may change one history. Any thread.
namespace HistoryMerge {

// What holds when `ours` and `theirs` have both been made of `base`: what either has added, without what either has
// removed, and changed as either has changed it; where both did, as we did.
HistoryState merged(const HistoryState& base, const HistoryState& ours, const HistoryState& theirs);

} // namespace HistoryMerge

} // namespace Kovrel
