#pragma once

#include <QImage>

namespace Kovrel {

// The whole capture made unreadable, from which redactions are cut. Made once for a capture and used for every
// redaction and redraw; they have the pixels, profile and transparent parts of the capture. Any thread but the main
// one.
namespace RedactionSources {

// The standard deviation of the blur, in pixels: 10 image points. What is left of letters up to 20 points high then
// lies far below a level of 8 bits: a stroke that repeats every 10 points keeps 3e-9 of its contrast.
constexpr double blurSigma(double exportScale)
{
    return 10 * exportScale;
}

// The side of a square, in pixels: 12 image points.
constexpr double pixelateCell(double exportScale)
{
    return 12 * exportScale;
}

// A null picture when memory is short.
QImage blurred(const QImage& capture, double exportScale);
QImage pixelated(const QImage& capture, double exportScale);

} // namespace RedactionSources

} // namespace Kovrel
