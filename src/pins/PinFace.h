#pragma once

#include "pins/PinGeometry.h"

#include <QImage>
#include <QRectF>

class QPainter;

namespace Kovrel {

// What is seen of a pin. Stateless; lengths are points.
namespace PinFace {

// Pictures keep nearly all of their corners.
constexpr double cornerRadius = 6;

// The picture in the middle of the card, at this size.
void paintPicture(QPainter& painter, const QRectF& card, const QImage& picture, QSizeF size, double radius);
// A button over the picture, `card` being the whole pin.
void paintButton(QPainter& painter, const QRectF& card, PinGeometry::Button button, bool isUnderPointer);

} // namespace PinFace

} // namespace Kovrel
