#pragma once

#include "imaging/MeasureSampler.h"

#include <QPoint>
#include <QRect>

#include <optional>

namespace Kovrel {

// What is measured on one display, in pixels of its picture. Any thread.
namespace MeasureReading {

// The runs of like pixels through one.
struct Cross {
    QPoint at;
    MeasureSampler::Run row;    // along x
    MeasureSampler::Run column; // along y

    QSize size() const { return {row.length(), column.length()}; }

    bool operator==(const Cross&) const = default;
};

// Nothing outside the picture.
std::optional<Cross> crossAt(const MeasureSampler& sampler, QPoint pixel, int tolerance);

// From the one pixel to the other, both in it.
QRect between(QPoint one, QPoint other);

// The same rectangle with each side at the edge nearest to it, where one is within reach.
QRect atEdges(const MeasureSampler& sampler, const QRect& rect, double reach);

} // namespace MeasureReading

} // namespace Kovrel
