#pragma once

#include <QImage>

namespace Kovrel {

// Makes pictures soft. Any thread.
namespace GaussianBlur {

// What is taken to lie around the picture.
enum class Edges {
    transparent, // nothing: what is blurred fades out
    repeated,    // the pixels of its edge, for ever
};

// The standard deviation behind the "blur radius" of a shadow, which reaches two of them in the usual drawing models
// (CSS Backgrounds and Borders, 7.1.1: "half the blur radius").
constexpr double sigmaOfBlurRadius(double radius)
{
    return radius / 2;
}

// The picture convolved with a Gaussian of standard deviation `sigma` pixels, at its own size; every 8-bit value is
// within one level of the exact one. Formats Alpha8, Grayscale8, RGB32, ARGB32_Premultiplied and, for colours finer
// than 8 bits, RGBX64 are kept, any other becomes ARGB32_Premultiplied. A sigma that is not above zero leaves the
// pixels alone. A null picture when memory is short.
QImage blurred(const QImage& image, double sigma, Edges edges);

} // namespace GaussianBlur

} // namespace Kovrel
