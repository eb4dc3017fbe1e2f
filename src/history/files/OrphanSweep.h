#pragma once

#include "history/files/HistoryFiles.h"

#include <chrono>

namespace Kovrel {

// Files of captures that no record names: what a killed program left behind. Not on the main thread.
namespace OrphanSweep {

// Younger ones may belong to a capture that is being recorded.
inline constexpr std::chrono::seconds age{300};

// Removes them; while an index that could not be read is kept, nothing. True when there are younger ones.
bool run(const HistoryFiles& files, const QSet<QUuid>& known);

} // namespace OrphanSweep

} // namespace Kovrel
