#include "editor/backdrop/PreparedGradient.h"

#include "model/HexColor.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Kovrel {

namespace {

OklabColor oklab(const QString& hex)
{
    return OklabColor::of(HexColor::parse(hex).value_or(QColor(Qt::gray)));
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
    return color.srgb();
}

} // namespace Kovrel
