#pragma once

#include <QImage>
#include <QRect>

#include <vector>

namespace Kovrel {

// Where codes with modules of a few pixels may be: light and dark everywhere, without the blank stretches that are
// between lines of text. Stateless; any thread.
namespace CodePlaces {

// In a picture of Format_Grayscale8, each with room for a quiet zone. The whole picture when they are most of it.
std::vector<QRect> of(const QImage& grey);

} // namespace CodePlaces

} // namespace Kovrel
