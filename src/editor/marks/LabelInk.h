#pragma once

#include "editor/marks/Annotation.h"

class QColor;
class QPainter;

namespace Kovrel {

// Text labels and their plates. Painters' y points up, in target points.
namespace LabelInk {

// The plate of a label, with its tail where it is a bubble. Upright.
void fillTextChip(QPainter& painter, const Annotation& label, double scale, const QColor& color);
// The label with its plate, turned by its rotation. Nothing for a label in which nothing is written.
void drawText(QPainter& painter, const Annotation& label, double scale);

} // namespace LabelInk

} // namespace Kovrel
