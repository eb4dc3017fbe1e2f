#pragma once

#include "editor/backdrop/BackdropPresets.h"

#include <vector>

namespace Kovrel {

// Whole backdrops that come with Kovrel, in the order in which they are shown. Any thread.
namespace BackdropLooks {

const std::vector<BackdropPreset>& all();

} // namespace BackdropLooks

} // namespace Kovrel
