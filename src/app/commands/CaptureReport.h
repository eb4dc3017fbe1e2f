#pragma once

#include "capture/CaptureRequest.h"
#include "platform/desktop/InstanceBus.h"

namespace Kovrel {

// What the command line prints of a capture.
namespace CaptureReport {

// `waited`: the files are on disk, so that their place can be told.
CommandAnswer answer(const CaptureOutcome& outcome, bool waited, bool asJson);

} // namespace CaptureReport

} // namespace Kovrel
