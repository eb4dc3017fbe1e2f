#pragma once

#include <QImage>

#include <optional>

namespace Kovrel {

// The pixels of one picture, held once, and where their colour changes along a row or a column. Pixels count from 0 at
// the upper left; boundary b lies between the pixels b - 1 and b, so 0 and the length of the axis are the picture's own
// borders. Alpha counts for nothing. Made off the main thread, since it may copy the pixels; asked on any.
class MeasureSampler {
public:
    // What people take for one thing: levels of a channel by which a gradient may drift within it; red, green and blue
    // together, of which borders that are fainter are not seen.
    static constexpr int usualTolerance = 24;
    static constexpr int usualEdgeFloor = 12;

    // Horizontal lines are rows, and `cross` is their y; vertical ones are columns, and `cross` is their x.
    enum class Axis {
        horizontal,
        vertical,
    };

    // The first and the last pixel of a run, both in it.
    struct Run {
        int lower = 0;
        int upper = 0;

        int length() const { return upper - lower + 1; }

        bool operator==(const Run&) const = default;
    };

    explicit MeasureSampler(const QImage& source);

    int width() const { return m_pixels.width(); }

    int height() const { return m_pixels.height(); }

    int length(Axis axis) const { return axis == Axis::horizontal ? width() : height(); }

    // The run of like pixels through one: no channel is off by more than the tolerance from that pixel itself, so a
    // slow gradient is followed until it has drifted as far. With a floor it ends at edges within the tolerance, too.
    // Nothing outside the picture.
    std::optional<Run> span(int x, int y, Axis axis, int tolerance, std::optional<int> edgeFloor = std::nullopt) const;

    // The change of red, green and blue together across a boundary, positive when it gets brighter. Nothing at the
    // borders of the picture and beyond.
    std::optional<int> signedStep(Axis along, int at, int cross) const;

    // Whether a boundary is an edge that people see, though its step may be small: neighbouring steps of one sign are
    // one ramp, as an antialiased or blurred border is. The ramp is an edge when it rises by more than the floor above
    // what its surroundings do anyway, and its steepest boundary is where the edge is. A gradient is none: it has no
    // end.
    bool qualifiesAsEdge(Axis along, int at, int cross, int floor) const;

    // The boundary within reach of a place that is the nearest edge; of two as near the sharper one, else the lower
    // one. The picture's borders are edges. Nothing where there is none.
    std::optional<int> sharpestEdge(Axis along, double near, int cross, double reach, int floor) const;

private:
    QImage m_pixels; // 8-bit RGBA without padding
};

} // namespace Kovrel
