#pragma once

#include <QRectF>

class QPainter;

namespace Kovrel {

// The shadow of what floats above other windows. Drawing it takes longer than all else on a card, so its corners are
// kept, for the scale and the colours of the moment. Main thread.
namespace FloatingShadow {

// Around a rectangle with rounded corners, in points; what lies below the middle of the rectangle is left out.
void paint(QPainter& painter, const QRectF& card, double radius);

} // namespace FloatingShadow

} // namespace Kovrel
