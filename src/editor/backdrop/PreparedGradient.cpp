#include "editor/backdrop/PreparedGradient.h"

#include "model/HexColor.h"

#include <algorithm>
#include <cmath>
#include <numbers>

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

OklabColor oklab(const QString& hex)
{
    const QColor color = HexColor::parse(hex).value_or(QColor(Qt::gray));
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

std::array<float, 3> srgb(const OklabColor& color)
{
    const auto cubed = [](float value) { return value * value * value; };
    const float l = cubed(color.lightness + 0.3963377774f * color.a + 0.2158037573f * color.b);
    const float m = cubed(color.lightness - 0.1055613458f * color.a - 0.0638541728f * color.b);
    const float s = cubed(color.lightness - 0.0894841775f * color.a - 1.2914855480f * color.b);
    return {encoded(4.0767416621f * l - 3.3077115913f * m + 0.2309699292f * s),
            encoded(-1.2684380046f * l + 2.6097574011f * m - 0.3413193965f * s),
            encoded(-0.0041960863f * l - 0.7034186147f * m + 1.7076147010f * s)};
}

OklabColor mixed(const OklabColor& one, const OklabColor& other, double share)
{
    const auto mix = [share](float from, float to) { return from + float(share) * (to - from); };
    return {mix(one.lightness, other.lightness), mix(one.a, other.a), mix(one.b, other.b)};
}

// From 1 in the middle to 0 at the rim, with no edge anywhere, not even in its slope's slope.
double fading(double squaredDistance)
{
    const double rest = std::max(0.0, 1 - squaredDistance);
    return rest * rest * rest;
}

} // namespace

PreparedGradient::PreparedGradient(const BackdropGradient& gradient)
    : m_cosine(std::cos(gradient.angleDegrees * std::numbers::pi / 180)),
      m_sine(std::sin(gradient.angleDegrees * std::numbers::pi / 180))
{
    for (const BackdropGradient::Stop& stop : gradient.stops)
        m_stops.emplace_back(oklab(stop.color), stop.location);
    for (const BackdropGradient::Blob& blob : gradient.blobs)
        m_blobs.push_back({oklab(blob.color), blob.x, 1 - blob.y, blob.radius, blob.opacity});
}

OklabColor PreparedGradient::alongStops(double location) const
{
    const auto isBehind = [](double place, const auto& stop) { return place < stop.second; };
    const auto next = std::upper_bound(m_stops.begin(), m_stops.end(), location, isBehind);
    if (next == m_stops.begin())
        return m_stops.empty() ? OklabColor() : m_stops.front().first;
    if (next == m_stops.end())
        return m_stops.back().first;
    const auto& [from, start] = *std::prev(next);
    const auto& [to, end] = *next;
    return mixed(from, to, (location - start) / (end - start));
}

std::array<float, 3> PreparedGradient::colorAt(double x, double y, QSize canvas) const
{
    const double across = (x - 0.5) * canvas.width();
    const double down = (y - 0.5) * canvas.height();
    const double length = std::abs(m_cosine) * canvas.width() + std::abs(m_sine) * canvas.height();
    OklabColor color = alongStops(0.5 + (across * m_cosine - down * m_sine) / length);
    const double longer = std::max(canvas.width(), canvas.height());
    for (const Blob& blob : m_blobs) {
        const double dx = (x - blob.x) * canvas.width() / (blob.radius * longer);
        const double dy = (y - blob.y) * canvas.height() / (blob.radius * longer);
        color = mixed(color, blob.color, blob.opacity * fading(dx * dx + dy * dy));
    }
    return srgb(color);
}

} // namespace Kovrel
