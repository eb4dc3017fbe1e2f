#pragma once

#include <QImage>

#include <optional>

namespace Kovrel {

// The colour of one pixel. Any thread.
namespace ColorLoupeSampler {

// As "#RRGGBB" in sRGB, whatever the picture's colour space; one without is sRGB already. What shines through is seen
// on black. Pixels are counted from the top-left corner; nothing beyond the picture.
std::optional<QString> hex(const QImage& of, int x, int y);

} // namespace ColorLoupeSampler

} // namespace Kovrel
