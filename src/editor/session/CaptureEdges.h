#pragma once

#include "editor/document/EditorCapture.h"
#include "imaging/MeasureSampler.h"

#include <optional>

namespace Kovrel {

// Where the picture of a capture has edges, in its image points, y up. Made off the main thread, since it copies the
// pixels; asked on any.
class CaptureEdges {
public:
    using Axis = MeasureSampler::Axis;

    struct Stretch {
        Point from;
        Point to;
        bool operator==(const Stretch&) const = default;
    };

    explicit CaptureEdges(const EditorCapture& capture);

    // A point brought along an axis to the nearest edge within reach; the point itself where there is none.
    Point nearest(Point to, Axis along, double reach) const;
    // From border to border of what is alike around a point: a button, a gap. Nothing outside the picture.
    std::optional<Stretch> around(Point at, Axis along) const;

private:
    double toPixels(double points, Axis along) const;
    double toPoints(double pixels, Axis along) const;

    MeasureSampler m_sampler;
    double m_scale; // pixels of an image point
};

} // namespace Kovrel
