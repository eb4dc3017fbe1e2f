#pragma once

#include <QImage>

#include <array>
#include <functional>
#include <vector>

namespace Kovrel {

// Pixels of soft pictures. Any thread.
namespace DitheredImage {

// A line of exact colours: red, green and blue, 0 to 255 each.
using Line = std::array<std::vector<float>, 3>;

using Paint = std::function<void(Line& line, int y)>;

// A picture of Format_RGB32 of which `paint` tells the lines; large ones on two threads at once. A colour between two
// levels becomes a pattern of both (ordered dithering with a Bayer matrix of 8 x 8, less than a level strong): there
// are no bands, the mean over 8 x 8 pixels is exact, and a repeating pattern packs better into files than noise does.
// A null image when memory is short.
QImage painted(QSize size, const Paint& paint);

// The same softened by a Gaussian of standard deviation `sigma` pixels, before it is brought to levels.
QImage paintedSoftly(QSize size, double sigma, const Paint& paint);

} // namespace DitheredImage

} // namespace Kovrel
