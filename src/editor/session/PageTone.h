#pragma once

#include "model/Geometry.h"

#include <QImage>

namespace Kovrel {

// How light the page of a capture is somewhere. Pure; any thread.
namespace PageTone {

// The luminance of most pixels around a place (pixels, y down), 0 to 1.
double luminanceAt(const QImage& capture, QPoint pixel);
// Whether a highlighter lays its colour on what is written there, instead of on the page.
bool isDark(double luminance);

} // namespace PageTone

} // namespace Kovrel
