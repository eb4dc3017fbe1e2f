#pragma once

#include <QImage>
#include <QRect>

#include <optional>

namespace Kovrel {

// Makes pictures smaller and larger. Any thread.
//
// Along a side that gets shorter each pixel is the mean of the area it stands for; along one that gets longer it lies
// on the cubic curve through its neighbours (Catmull and Rom's, the Keys cubic with a = -1/2). Colours are weighted by
// their alpha; profile and density are kept. The answer is Format_RGB32, or Format_ARGB32_Premultiplied for a picture
// with alpha.
namespace Resampling {

// Longer sides and larger pictures are not made.
inline constexpr int longestSide = 32767;
inline constexpr qint64 mostPixels = 500'000'000;

// The picture at a size; itself, as it is, where it has that size. Nothing for a null picture, a size that is empty or
// too large, or when memory is short.
std::optional<QImage> resampledExactly(const QImage& image, QSize to);

// The picture with its sides divided by `factor` (above 1, also a fraction), rounded to whole pixels, at least one.
// Nothing for a null picture, a factor that does not reduce, or when memory is short.
std::optional<QImage> reduced(const QImage& image, double factor);

// The picture as large as it fits within bounds, and never larger than it is. Null for a null picture, empty bounds, or
// when memory is short.
QImage fitted(const QImage& image, QSize bounds);

// The middle part of a picture that covers `to` when it is resampled to that size, nothing of it out of shape.
QRect coveringPart(QSize image, QSize to);

} // namespace Resampling

} // namespace Kovrel
