#pragma once

#include <QImage>

namespace Kovrel {

// Hides details in coarse squares. Any thread.
namespace Pixelation {

// The picture in squares of `cell` pixels, each of the mean of what it covers. The squares are laid out from the middle
// of the picture, where four of them meet; at its edges they are completed by the pixels of the edge. The format
// becomes RGB32 for opaque formats, else ARGB32_Premultiplied. A cell of less than a pixel leaves the picture alone. A
// null picture when memory is short.
QImage pixelated(const QImage& image, double cell);

} // namespace Pixelation

} // namespace Kovrel
