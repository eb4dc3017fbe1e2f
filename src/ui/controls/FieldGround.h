#pragma once

#include <QColor>
#include <QRect>

class QPainter;

namespace Kovrel {

// What texts that can be changed stand on. The keyboard's focus shows as a ring.
namespace FieldGround {

void paint(QPainter& painter, const QRect& rect, const QColor& color, bool hasFocus);

} // namespace FieldGround

} // namespace Kovrel
