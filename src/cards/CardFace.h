#pragma once

#include <QImage>
#include <QSizeF>

namespace Kovrel {

// The shape of a card, and its picture. Lengths are points. Stateless; any thread.
namespace CardFace {

constexpr double width = 216;
constexpr double frame = 6; // of the card around its picture
constexpr double leastHeight = 92;
constexpr double mostHeight = 164;

// Of the card with a picture of so many pixels: as high as the picture asks, within bounds.
QSizeF cardSize(QSize pixels);
// The room for the picture, in device pixels.
QSize room(QSizeF card, double scale);

// The picture as it is shown: as large as it fits, and never larger than it is on its own screen, where a point has
// `pixelScale` pixels. Null when memory is short.
QImage render(const QImage& capture, double pixelScale, QSizeF card, double scale);

} // namespace CardFace

} // namespace Kovrel
