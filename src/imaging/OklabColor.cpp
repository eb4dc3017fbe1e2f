#include "imaging/OklabColor.h"

#include <algorithm>
#include <cmath>

namespace Kovrel {

namespace {

float linear(double channel)
{
    return float(channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4));
}

float encoded(float linearValue)
{
    const float value = std::clamp(linearValue, 0.0f, 1.0f);
    return 255 * (value <= 0.0031308f ? 12.92f * value : 1.055f * std::pow(value, 1 / 2.4f) - 0.055f);
}

float cubed(float value)
{
    return value * value * value;
}

} // namespace

OklabColor OklabColor::of(const QColor& color)
{
    const float red = linear(color.redF());
    const float green = linear(color.greenF());
    const float blue = linear(color.blueF());
    const float l = std::cbrt(0.4122214708f * red + 0.5363325363f * green + 0.0514459929f * blue);
    const float m = std::cbrt(0.2119034982f * red + 0.6806995451f * green + 0.1073969566f * blue);
    const float s = std::cbrt(0.0883024619f * red + 0.2817188376f * green + 0.6299787005f * blue);
    return {.lightness = 0.2104542553f * l + 0.7936177850f * m - 0.0040720468f * s,
            .a = 1.9779984951f * l - 2.4285922050f * m + 0.4505937099f * s,
            .b = 0.0259040371f * l + 0.7827717662f * m - 0.8086757660f * s};
}

std::array<float, 3> OklabColor::srgb() const
{
    const float l = cubed(lightness + 0.3963377774f * a + 0.2158037573f * b);
    const float m = cubed(lightness - 0.1055613458f * a - 0.0638541728f * b);
    const float s = cubed(lightness - 0.0894841775f * a - 1.2914855480f * b);
    return {encoded(4.0767416621f * l - 3.3077115913f * m + 0.2309699292f * s),
            encoded(-1.2684380046f * l + 2.6097574011f * m - 0.3413193965f * s),
            encoded(-0.0041960863f * l - 0.7034186147f * m + 1.7076147010f * s)};
}

} // namespace Kovrel
