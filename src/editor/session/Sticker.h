#pragma once

#include "editor/document/EditorCapture.h"
#include "editor/marks/Annotation.h"

namespace Kovrel {

// Pictures that are laid on a capture. Pure; any thread.
namespace Sticker {

// With no more pixels to a side than the capture has: however large it is made there, no more of them are seen.
QImage bounded(const QImage& picture, const EditorCapture& capture);

// The mark in the picture's own size, pixel by pixel, or as much of that as half of the capture's sides allows.
// `middle` is in image points.
Annotation mark(const QImage& picture, Point middle, const EditorCapture& capture);

} // namespace Sticker

} // namespace Kovrel
