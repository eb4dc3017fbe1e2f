#pragma once

#include <QImage>

namespace Kovrel {

// A turn by 90 degrees.
enum class QuarterTurn {
    left,  // counterclockwise
    right, // clockwise
};

// The picture turned, pixel by pixel. Null when memory is short. Any thread.
QImage turned(const QImage& image, QuarterTurn turn);

} // namespace Kovrel
