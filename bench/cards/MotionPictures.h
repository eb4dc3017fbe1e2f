#pragma once

#include <QImage>

namespace Kovrel::MotionPictures {

// Frames beside each other, 30 ms apart: a card flies in, the pile makes room for a second one, which comes, and that
// is flicked away. Main thread.
QImage ofCards(const QImage& capture);

} // namespace Kovrel::MotionPictures
