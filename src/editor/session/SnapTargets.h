#pragma once

#include "editor/marks/Annotation.h"

#include <span>
#include <vector>

namespace Kovrel {

// What other marks offer to be snapped to.
namespace SnapTargets {

// The bounds of all marks but some. Strokes and lines have no sides that anybody would see.
std::vector<Rect> of(std::span<const Annotation> marks, std::span<const QUuid> without);

} // namespace SnapTargets

} // namespace Kovrel
