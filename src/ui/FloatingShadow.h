#pragma once

#include <QRectF>

class QPainter;

namespace Kovrel {

// The shadow of what floats above other windows. Drawing it takes longer than all else on a card, so its corners are
// kept, for the latest radii, scales and colours. Main thread.
namespace FloatingShadow {

// Around a rectangle with rounded corners, in points; what lies below the middle of the rectangle is left out.
void paint(QPainter& painter, const QRectF& card, double radius);

// Makes the corners before they are needed. `scale`: device pixels per point.
void prewarm(double radius, double scale);

} // namespace FloatingShadow

} // namespace Kovrel
