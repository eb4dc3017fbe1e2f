#pragma once

#include <QImage>

#include <optional>

namespace Kovrel {

// Makes pictures smaller. Any thread.
namespace AreaAverage {

// The picture with its sides divided by `factor` (above 1, also a fraction), rounded to whole pixels, at least one.
// Each pixel is the mean of the area it stands for, colours weighted by their alpha. Profile and density are kept.
// Nothing for a null picture, a factor that does not reduce, or when memory is short.
std::optional<QImage> reduced(const QImage& image, double factor);

} // namespace AreaAverage

} // namespace Kovrel
