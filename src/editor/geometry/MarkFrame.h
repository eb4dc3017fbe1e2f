#pragma once

#include "editor/marks/Annotation.h"

#include <span>

namespace Kovrel {

// Where marks are, and how they are brought elsewhere. Image points, y up. Pure; any thread.
namespace MarkFrame {

// What handles hold, before it is turned: the plate of a label, the badge of a step, what the points of the others
// span.
Rect frame(const Annotation& mark);
// An upright rectangle around the turned frame; of a bent line, around the curve.
Rect bounds(const Annotation& mark);
// Around all of them; empty of none.
Rect bounds(std::span<const Annotation> marks);
// A place of the turned frame: 0,0 is its lower left corner before it is turned, 1,1 the upper right one.
Point place(const Annotation& mark, double across, double up);

Point turned(Point point, Point centre, double radians);

Annotation translated(Annotation mark, Size by);
// Turned about a centre with all that it is; what does not turn only goes round.
Annotation turned(Annotation mark, Point centre, double radians);
// Its frame becomes another one. Labels and steps keep their shape and fit the new height; a label stays at the upper
// left corner.
Annotation stretched(Annotation mark, const Rect& to);
// All lengths and places, counted from a centre.
Annotation scaled(Annotation mark, Point centre, double factor);

// A label with another text, and other changes to it, whose upper left corner stays where it is.
Annotation withText(Annotation label, const QString& text);
Annotation keepingUpperLeft(const Annotation& before, Annotation label);

} // namespace MarkFrame

} // namespace Kovrel
