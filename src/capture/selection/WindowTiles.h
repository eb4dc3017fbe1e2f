#pragma once

#include "platform/Display.h"
#include "platform/Windows.h"

#include <vector>

namespace Kovrel {

// Windows that stand side by side like tiles, to be picked together.
//
// The rule: the pointer is at the seam, at most `reach` points from each of them; they are ordinary windows; and each
// shares an edge with the first: their facing edges lie at most `widestGap` points apart, and along that edge both
// begin and end at the same place, within `slack` points. Anywhere else on a tile the pointer picks that tile alone.
namespace WindowTiles {

inline constexpr double reach = 8;
inline constexpr double widestGap = 16;
inline constexpr double slack = 4;

// The windows' indices, front to back: two or more that form a live group under the pointer, else none.
std::vector<size_t> groupAt(const std::vector<WindowInfo>& windows, QPoint rootPixel, double scale, qint64 ownPid);

// The windows that were picked, when they form a live group; else none.
std::vector<WindowInfo> liveTileMembers(const std::vector<WindowInfo>& windows, double scale);

} // namespace WindowTiles

} // namespace Kovrel
