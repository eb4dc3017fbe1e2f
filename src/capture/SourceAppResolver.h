#pragma once

#include "platform/Windows.h"

namespace Kovrel {

// Which application a captured rectangle shows.
namespace SourceAppResolver {

// That of the frontmost window of a program over the middle of the rectangle, else of the one that covers most of it;
// our own process and the desktop's furniture do not count. `windows` front to back.
std::optional<SourceApp> resolve(const std::vector<WindowInfo>& windows, QRect rootPixels, qint64 ownPid);

} // namespace SourceAppResolver

} // namespace Kovrel
