#pragma once

#include <QColorSpace>
#include <QImage>
#include <QRandomGenerator>

namespace Kovrel::Testing {

enum class Texture { noise, fewColours, blocks, gradient, flat };

// A picture of a kind, the same for the same seed.
QImage testPicture(QSize size, Texture texture, quint32 seed = 1);

// The same with alpha from nothing to everything, as Format_ARGB32.
QImage translucent(QImage image, quint32 seed = 1);

} // namespace Kovrel::Testing
