#pragma once

#include "overlay/OverlaySession.h"

namespace Kovrel {

// Keys that do the same in every session.
namespace OverlayKeys {

// The arrow keys, by a pixel, with Shift by ten. Root pixels: downwards is positive.
std::vector<OverlaySession::Key> arrows(const std::function<void(QPoint step, KeyGrabs::Press)>& onStep);

} // namespace OverlayKeys

} // namespace Kovrel
