#include "picking/measure/MeasureReading.h"

namespace Kovrel {

namespace {

using Axis = MeasureSampler::Axis;

// The boundaries at both ends of a stretch, each at its edge. The line through the middle finds them: what is framed is
// there.
std::pair<int, int> edgesOf(const MeasureSampler& sampler, Axis along, std::pair<int, int> ends, int cross,
                            double reach)
{
    const auto edge = [&](int end) {
        return sampler.sharpestEdge(along, end, cross, reach, MeasureSampler::usualEdgeFloor).value_or(end);
    };
    const std::pair found(edge(ends.first), edge(ends.second));
    return found.first < found.second ? found : ends;
}

} // namespace

std::optional<MeasureReading::Cross> MeasureReading::crossAt(const MeasureSampler& sampler, QPoint pixel, int tolerance)
{
    constexpr int floor = MeasureSampler::usualEdgeFloor;
    const auto row = sampler.span(pixel.x(), pixel.y(), Axis::horizontal, tolerance, floor);
    const auto column = sampler.span(pixel.x(), pixel.y(), Axis::vertical, tolerance, floor);
    return row && column ? std::optional(Cross{pixel, *row, *column}) : std::nullopt;
}

QRect MeasureReading::between(QPoint one, QPoint other)
{
    return QRect(one, QSize(1, 1)) | QRect(other, QSize(1, 1));
}

QRect MeasureReading::atEdges(const MeasureSampler& sampler, const QRect& rect, double reach)
{
    const QPoint middle = rect.center();
    const auto [left, right] =
        edgesOf(sampler, Axis::horizontal, {rect.x(), rect.x() + rect.width()}, middle.y(), reach);
    const auto [top, bottom] =
        edgesOf(sampler, Axis::vertical, {rect.y(), rect.y() + rect.height()}, middle.x(), reach);
    return {left, top, right - left, bottom - top};
}

} // namespace Kovrel
