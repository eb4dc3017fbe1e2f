#pragma once

#include "editor/marks/Annotation.h"

#include <QRectF>

#include <span>

namespace Kovrel {

// What has to be drawn anew when one list of marks takes the place of another. Image points, y up. Pure; any thread.
namespace MarkChanges {

// The areas in which the pictures of both may differ. `all` is everything that is drawn; a change of how dark it is
// around spotlights is one of all of it.
std::vector<QRectF> areas(std::span<const Annotation> before, std::span<const Annotation> after, const QRectF& all);

} // namespace MarkChanges

} // namespace Kovrel
