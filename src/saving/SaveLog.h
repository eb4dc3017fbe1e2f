#pragma once

#include "platform/files/AtomicFile.h"

namespace Kovrel {

// A line in the log of captures: what failed, with its colon, and why.
void logSaveFailure(const char* what, const SaveFailure& failure);

} // namespace Kovrel
