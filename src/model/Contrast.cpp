#include "model/Contrast.h"

#include <algorithm>
#include <cmath>

namespace Kovrel {

namespace {

double linear(double channel)
{
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

} // namespace

double relativeLuminance(const QColor& color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& one, const QColor& other)
{
    const auto [dark, light] = std::minmax({relativeLuminance(one), relativeLuminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

} // namespace Kovrel
