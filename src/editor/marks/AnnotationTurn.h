#pragma once

#include "editor/marks/Annotation.h"
#include "imaging/QuarterTurn.h"

namespace Kovrel {

// Marks that turn with their capture. Stateless; any thread.
namespace AnnotationTurn {

// A mark on a capture of that size, in image points before the turn. Labels and pictures are turned as they are,
// the number of a step stays upright, all others lie where what they mark has gone.
Annotation turned(Annotation mark, Size capture, QuarterTurn turn);

Point turned(Point point, Size capture, QuarterTurn turn);

} // namespace AnnotationTurn

} // namespace Kovrel
