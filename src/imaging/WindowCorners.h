#pragma once

#include <QImage>

namespace Kovrel {

// The round corners of a window's pixels.
namespace WindowCorners {

// Makes what lies beside them transparent: the shadow that some windows draw themselves, and the black with which
// window managers fill a frame that has no alpha. What is no such corner stays as it is. The picture is
// Format_ARGB32_Premultiplied.
void cut(QImage& window);

} // namespace WindowCorners

} // namespace Kovrel
