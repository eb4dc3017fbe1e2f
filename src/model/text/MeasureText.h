#pragma once

#include "model/MeasureUnit.h"

#include <QSize>
#include <QString>

namespace Kovrel {

// Measured lengths as people read them. Any thread.
namespace MeasureText {

// Whole pixels, or points to a tenth: "64.5". `scale`: pixels of a point.
QString number(double pixels, MeasureUnit unit, double scale);

// "128 px"
QString length(double pixels, MeasureUnit unit, double scale);

// "128 × 40"
QString size(QSize pixels, MeasureUnit unit, double scale);

} // namespace MeasureText

} // namespace Kovrel
