#include "model/text/MeasureText.h"

#include <cmath>

namespace Kovrel {

QString MeasureText::number(double pixels, MeasureUnit unit, double scale)
{
    const double rounded = unit == MeasureUnit::pixels ? std::round(pixels) : std::round(pixels / scale * 10) / 10;
    return QString::number(rounded, 'g', 10);
}

QString MeasureText::length(double pixels, MeasureUnit unit, double scale)
{
    return number(pixels, unit, scale) + ' ' + rawString(unit);
}

QString MeasureText::size(QSize pixels, MeasureUnit unit, double scale)
{
    return QString("%1 \u00d7 %2").arg(number(pixels.width(), unit, scale), number(pixels.height(), unit, scale));
}

} // namespace Kovrel
