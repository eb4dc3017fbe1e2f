#include "editor/session/CaptureEdges.h"

#include <cmath>

namespace Kovrel {

namespace {

using Axis = CaptureEdges::Axis;

constexpr int tolerance = MeasureSampler::usualTolerance;
constexpr int edgeFloor = MeasureSampler::usualEdgeFloor;

Axis acrossOf(Axis axis)
{
    return axis == Axis::horizontal ? Axis::vertical : Axis::horizontal;
}

double part(Point point, Axis along)
{
    return along == Axis::horizontal ? point.x : point.y;
}

Point with(Point point, Axis along, double value)
{
    (along == Axis::horizontal ? point.x : point.y) = value;
    return point;
}

} // namespace

CaptureEdges::CaptureEdges(const EditorCapture& capture) : m_sampler(capture.image), m_scale(capture.scale) {}

// Rows of pixels count from the top.
double CaptureEdges::toPixels(double points, Axis along) const
{
    return along == Axis::horizontal ? points * m_scale : m_sampler.height() - points * m_scale;
}

double CaptureEdges::toPoints(double pixels, Axis along) const
{
    return (along == Axis::horizontal ? pixels : m_sampler.height() - pixels) / m_scale;
}

Point CaptureEdges::nearest(Point to, Axis along, double reach) const
{
    const Axis across = acrossOf(along);
    const double cross = std::floor(toPixels(part(to, across), across));
    if (!(cross >= 0 && cross < m_sampler.length(across)))
        return to;
    const auto edge =
        m_sampler.sharpestEdge(along, toPixels(part(to, along), along), int(cross), reach * m_scale, edgeFloor);
    return edge ? with(to, along, toPoints(*edge, along)) : to;
}

std::optional<CaptureEdges::Stretch> CaptureEdges::around(Point at, Axis along) const
{
    const double x = std::floor(toPixels(at.x, Axis::horizontal));
    const double y = std::floor(toPixels(at.y, Axis::vertical));
    if (!(x >= 0 && y >= 0 && x < m_sampler.width() && y < m_sampler.height()))
        return std::nullopt;
    const auto run = m_sampler.span(int(x), int(y), along, tolerance, edgeFloor);
    return Stretch{with(at, along, toPoints(run->lower, along)), with(at, along, toPoints(run->upper + 1, along))};
}

} // namespace Kovrel
