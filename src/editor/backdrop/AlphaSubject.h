#pragma once

#include "model/CaptureSubject.h"

#include <QImage>

#include <optional>

namespace Kovrel {

// The window inside a transparent capture of which nobody has said where it is. Any thread.
namespace AlphaSubject {

// The rounded rectangle that is covered, in pixels, with the largest of its corners; a shadow around it does not count.
// Nothing for an opaque picture, and where what is covered has another shape. A look at every pixel.
std::optional<CaptureSubject> measured(const QImage& image);

} // namespace AlphaSubject

} // namespace Kovrel
